// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/package/PackageScene.h"

#include "background/package/PackageElements.h"
#include "background/package/PackageProof.h"
#include "platform/AsciiCase.h"
#include "platform/Paths.h"
#include "render/package/StylePens.h"
#include "util/Angles.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>

namespace vexlator::render {

namespace {

using namespace background;

/// Of images in legends, and where one cannot be decoded.
constexpr Argb imageEdge = black | 0x909090, imageGround = black | 0xD8D8D8;

/// Elements become items of the layer and pen that their look asks for.
class PackageItems {
public:
    PackageItems(const SceneOptions& options, const MobileStyles& mobileStyles)
        : wanted_(options.layers), mobileStyles_(mobileStyles) {
        if (options.ground) builder_.KeepOnly(*options.ground);
    }

    /// Images of a package, or of the packages of a mosaic.
    void AddImages(const std::shared_ptr<const PackageReader>& package) {
        if (package->IsMosaic())
            for (const IndexEntry& entry : package->Entries())
                AddImages(std::make_shared<PackageReader>(MemberPackage(*package, entry)));
        if (package->Images().empty()) return;
        builder_.Keep(package);
        for (const ImageTile& image : package->Images()) AddImage(image);
    }
    void AddArea(const PackageReader& package, const Element& area) {
        builder_.SetEntity(next_++);
        if (!Choose(area.header, PenColumn(ItemKind::Area))) return;
        bool isFirst = true;
        for (const auto& ring : RingsOf(package, area)) {
            if (isFirst || !builder_.AddHole(layer_, ring))
                builder_.AddCourse(layer_, pen_, ItemKind::Area, ring);
            isFirst = false;
        }
    }
    void AddLine(const Element& line) {
        builder_.SetEntity(next_++);
        bool isPoint = line.points.size() == 1;
        if (!Choose(line.header, PenColumn(isPoint ? ItemKind::Dot : ItemKind::Line))) return;
        if (isPoint) return builder_.AddDot(layer_, pen_, line.points[0]);
        builder_.AddCourse(layer_, pen_, ItemKind::Line, line.points);
    }
    void AddText(const Element& text) {
        builder_.SetEntity(next_++);
        if (!Choose(text.header, PenColumn(ItemKind::Text))) return;
        builder_.AddText(layer_, pen_, {text.text.x, text.text.y}, text.text.height / 10.0,
                         text.text.rotation / 10.0 / util::degreesPerRadian,
                         {text.characters, TextAnchor::TopLeft});
    }
    /// @throws platform::ReadError for a wanted layer that does not exist
    Scene Take() {
        for (const std::string& name : wanted_)
            if (std::none_of(layers_.begin(), layers_.end(),
                             [&](const auto& layer) { return platform::SameNoCase(layer.first, name); }))
                throw platform::ReadError("", "", "there is no layer " + name);
        return builder_.Take();
    }

private:
    struct Chosen {
        std::uint32_t layer, pen;
        bool isShown;
    };

    void AddImage(const ImageTile& tile) {
        constexpr std::uint32_t kind = 0xffU << 24;  // apart from all looks of elements
        builder_.SetEntity(next_++);
        auto known = chosen_.find(kind);
        if (known == chosen_.end())
            known = chosen_.emplace(kind, Make("Images", {.line = imageEdge, .fill = imageGround})).first;
        if (!known->second.isShown) return;
        const formats::WorldFile& world = tile.world;
        builder_.AddImage(known->second.layer, known->second.pen, {tile.jpeg, tile.width, tile.height},
                          {{world.a, world.d}, {world.b, world.e}, world.Ground({0, 0})});
    }
    /// Sets layer and pen of the following elements; false if they are not wanted.
    bool Choose(const ElementHeader& header, std::size_t column) {
        std::uint32_t key = static_cast<std::uint32_t>(column) << 24 | std::uint32_t{header.classA} << 16 |
                            std::uint32_t{header.classB} << 8 | header.classC;
        auto known = chosen_.find(key);
        if (known == chosen_.end()) known = chosen_.emplace(key, MakeFor(header, column)).first;
        layer_ = known->second.layer;
        pen_ = known->second.pen;
        return known->second.isShown;
    }
    Chosen MakeFor(const ElementHeader& header, std::size_t column) {
        Pen pen = PenOfElement(header, column, mobileStyles_);
        // The outline of an area is a separate line.
        if (column == PenColumn(ItemKind::Area)) pen.line = 0;
        return Make(LookOf(header).name, pen);
    }
    Chosen Make(std::string_view name, const Pen& pen) {
        auto [layer, isNew] = layers_.try_emplace(name);
        bool isShown = wanted_.empty() ||
                       std::any_of(wanted_.begin(), wanted_.end(),
                                   [&](const auto& wanted) { return platform::SameNoCase(wanted, name); });
        if (isNew && isShown) layer->second = builder_.AddLayer(name);
        return {layer->second, builder_.AddPen(pen), isShown};
    }

    const std::vector<std::string>& wanted_;
    const MobileStyles& mobileStyles_;
    SceneBuilder builder_;
    std::map<std::string_view, std::uint32_t> layers_;  ///< names of looks have static lifetime
    std::map<std::uint32_t, Chosen> chosen_;
    std::uint32_t layer_ = 0, pen_ = 0;
    std::uint32_t next_ = 0;  ///< number of elements so far
};

}  // namespace

Scene SceneOfPackage(std::string_view path, const SceneOptions& options,
                     const background::MobileStyles& mobileStyles) {
    auto whole = std::make_shared<const PackageReader>(path);
    const PackageReader& package = *whole;
    ProvePackage(package);
    PackageItems items(options, mobileStyles);
    items.AddImages(whole);
    ForEachElement(package, "A", [&](const PackageReader& member, const Tile&, const Element& area) {
        items.AddArea(member, area);
    });
    ForEachElement(package, "LR",
                   [&](const PackageReader&, const Tile&, const Element& line) { items.AddLine(line); });
    ForEachElement(package, "T",
                   [&](const PackageReader&, const Tile&, const Element& text) { items.AddText(text); });
    try {
        return items.Take();
    } catch (const platform::ReadError& error) {
        throw error.InFile(package.IndexName());
    }
}

}  // namespace vexlator::render
