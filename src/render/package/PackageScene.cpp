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
#include <optional>

namespace vexlator::render {

namespace {

using namespace background;

/// Elements become items of the layer and pen that their look asks for.
class PackageItems {
public:
    explicit PackageItems(const SceneOptions& options) : wanted_(options.layers) {
        if (options.ground) builder_.KeepOnly(*options.ground);
    }

    void AddArea(const PackageReader& package, const Element& area) {
        builder_.SetEntity(next_++);
        if (!Choose(area.header, true)) return;
        bool isFirst = true;
        for (const auto& ring : RingsOf(package, area)) {
            if (isFirst || !builder_.AddHole(layer_, ring))
                builder_.AddCourse(layer_, pen_, ItemKind::Area, ring);
            isFirst = false;
        }
    }
    void AddLine(const Element& line) {
        builder_.SetEntity(next_++);
        if (!Choose(line.header, false)) return;
        if (line.points.size() == 1) return builder_.AddDot(layer_, pen_, line.points[0]);
        builder_.AddCourse(layer_, pen_, ItemKind::Line, line.points);
    }
    void AddText(const Element& text) {
        builder_.SetEntity(next_++);
        if (!Choose(text.header, false)) return;
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

    /// Sets layer and pen of the following elements; false if they are not wanted.
    bool Choose(const ElementHeader& header, bool isArea) {
        std::uint32_t key = (isArea ? 1U << 16 : 0U) | std::uint32_t{header.classA} << 8 | header.classC;
        auto known = chosen_.find(key);
        if (known == chosen_.end()) known = chosen_.emplace(key, Make(LookOf(header), isArea)).first;
        layer_ = known->second.layer;
        pen_ = known->second.pen;
        return known->second.isShown;
    }
    Chosen Make(const Look& look, bool isArea) {
        auto [layer, isNew] = layers_.try_emplace(look.name);
        bool isShown = wanted_.empty() || std::any_of(wanted_.begin(), wanted_.end(), [&](const auto& name) {
                           return platform::SameNoCase(name, look.name);
                       });
        if (isNew && isShown) layer->second = builder_.AddLayer(look.name);
        Pen pen;
        // The outline of an area is a separate line.
        pen.line = isArea ? 0 : black | look.rgb;
        pen.fill = isArea ? WithAlpha(look.rgb, areaAlpha) : 0;
        pen.weight = look.isThick ? thickWeight : 0;
        return {layer->second, builder_.AddPen(pen), isShown};
    }

    const std::vector<std::string>& wanted_;
    SceneBuilder builder_;
    std::map<std::string_view, std::uint32_t> layers_;  ///< names of looks have static lifetime
    std::map<std::uint32_t, Chosen> chosen_;
    std::uint32_t layer_ = 0, pen_ = 0;
    std::uint32_t next_ = 0;  ///< number of elements so far
};

}  // namespace

Scene SceneOfPackage(std::string_view path, const SceneOptions& options) {
    PackageReader package(path);
    if (ProvePackage(package).images > 0)
        throw platform::ReadError(package.IndexName(), "", "it holds images, which grpinfo --svg draws");
    PackageItems items(options);
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
