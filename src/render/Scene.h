// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "drawing/PodVector.h"
#include "render/Markers.h"
#include "render/Palette.h"
#include "util/Placement.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::render {

using util::Placement;
using util::PlanePoint;

using drawing::Box;

/// The style of an item.
struct Pen {
    Argb line = black, fill = 0;    ///< 0: not drawn
    std::int32_t weight = 0;        ///< hundredths of a millimetre; 0: as thin as possible
    std::uint8_t lineType = 0;      ///< drawing::LineTypeNumber()
    Marker marker = Marker::Usual;  ///< of points; `weight` is the size of all but the usual dot
    Hatch hatch = Hatch::Solid;     ///< of the fill
    /// In a symbol: drawn in the colour of its feature.
    bool lineTakesColour = false, fillTakesColour = false;
    bool isHatched = false;  ///< an area with the marks of standing water, in the colour of its outline
    bool operator==(const Pen&) const = default;
};

/// The meaning of an item's vertices.
enum class ItemKind : std::uint8_t {
    Line,    ///< an open line
    Ring,    ///< a closed line
    Area,    ///< rings, filled by the odd-even rule and outlined
    Dot,     ///< a position
    Circle,  ///< centre; (radius, 0)
    Arc,     ///< centre; (radius, 0); (start, end) in radians
    Text,    ///< position; (height, rotation in radians)
    Symbol,  ///< origin; x axis; y axis, as in Placement
    Image    ///< the same, of its pixels
};

/// The reference point of a text's position.
enum class TextAnchor : std::uint8_t {
    Baseline,   ///< at the left end of its baseline
    TopLeft,    ///< at its upper left corner
    TopCentre,  ///< above its middle
    Diagonal    ///< as Baseline; its height is the diagonal of the text's box
};

/// A JPEG file on the ground. It is decoded whenever it is painted, so that memory holds no pixels.
struct Image {
    std::span<const std::byte> jpeg;
    int width, height;  ///< pixels
};

struct Text {
    std::string characters;
    TextAnchor anchor = TextAnchor::Baseline;
};

/// A layer, and the style of its features, for legends.
struct SceneLayer {
    std::string name;
    std::uint64_t items = 0;
    ItemKind kind = ItemKind::Line;  ///< kind of its first item
    Pen pen;
    std::uint32_t symbol = 0;
};

/// A box on the ground relative to the scene's origin. It is never smaller than its contents.
struct NearBox {
    float minX, minY, maxX, maxY;
    bool Meets(const NearBox& other) const {
        // Tests all four at once, because branches would be unpredictable.
        return static_cast<bool>(static_cast<int>(minX <= other.maxX) & static_cast<int>(other.minX <= maxX) &
                                 static_cast<int>(minY <= other.maxY) & static_cast<int>(other.minY <= maxY));
    }
    void Widen(const NearBox& other);
};

/// A drawing as a list of items to paint, in drawing order. Made once, then painted any number of times, by
/// several threads if needed. It has its own copy of the vertices: 16 bytes each, and 48 bytes per item.
class Scene {
public:
    struct Item {
        std::uint64_t firstVertex;
        std::uint32_t vertices;
        std::uint32_t pen;
        std::uint32_t extra;  ///< Area: number of its first ring's end; Text, Symbol, Image: its number
        ItemKind kind;
    };
    /// The origin of an item.
    struct Source {
        std::uint32_t
            entity;  ///< its number in the drawing or package, from 0; for an area: the number of its shell
        std::uint32_t layer;  ///< its index in Layers()
    };
    static constexpr std::size_t itemsPerBlock = 512;

    Scene() = default;
    Scene(Scene&&) = default;
    Scene& operator=(Scene&&) = default;

    /// All 0 without items. Includes the size of texts and symbols.
    const Box& Extents() const { return extents_; }
    std::span<const SceneLayer> Layers() const { return layers_; }
    std::size_t ItemCount() const { return items_.size(); }
    /// Number of features without a position: no vertices, or coordinates that are not finite.
    std::uint64_t LeftOut() const { return leftOut_; }
    Box BoxOf(std::size_t item) const;

    const Item& At(std::size_t item) const { return items_[item]; }
    const Source& SourceOf(std::size_t item) const { return sources_[item]; }
    const Pen& PenOf(const Item& item) const { return pens_[item.pen]; }
    std::span<const PlanePoint> VerticesOf(const Item& item) const {
        return {vertices_.data() + item.firstVertex, item.vertices};
    }
    /// The ends of an area's rings, counted from its first vertex; the last is its number of vertices.
    std::span<const std::uint32_t> RingEndsOf(const Item& area) const;
    const Text& TextOf(const Item& item) const { return texts_[item.extra]; }
    const Image& ImageOf(const Item& item) const { return images_[item.extra]; }
    const Scene& SymbolOf(const Item& item) const { return Symbol(item.extra); }
    const Scene& Symbol(std::uint32_t number) const { return *symbols_[number]; }
    std::shared_ptr<const Scene> SharedSymbol(std::uint32_t number) const { return symbols_[number]; }

    /// The items whose boxes meet a box on the ground, in drawing order.
    std::vector<std::uint32_t> ItemsIn(const Box& ground) const;
    /// Whether an item's box meets a box of Near().
    bool Meets(std::size_t item, const NearBox& window) const { return boxes_[item].Meets(window); }
    NearBox Near(const Box& ground) const;

private:
    friend class SceneBuilder;

    PlanePoint origin_;
    bool hasOrigin_ = false;
    Box extents_;
    std::vector<SceneLayer> layers_;
    std::vector<Pen> pens_;
    drawing::PodVector<Item> items_;
    drawing::PodVector<Source> sources_;
    drawing::PodVector<NearBox> boxes_;
    std::vector<NearBox> blocks_;
    drawing::PodVector<PlanePoint> vertices_;
    std::vector<std::uint32_t> ringEnds_;
    std::vector<Text> texts_;
    std::vector<std::shared_ptr<const Scene>> symbols_;
    std::vector<Image> images_;
    std::vector<std::shared_ptr<const void>> owners_;  ///< of the images' files
    std::uint64_t leftOut_ = 0;
};

/// Builds a scene item by item.
class SceneBuilder {
public:
    /// Keeps only items that meet the box.
    void KeepOnly(const Box& ground);
    /// Sets the origin of the following items.
    void SetEntity(std::uint32_t entity) { entity_ = entity; }
    /// Numbers for items.
    std::uint32_t AddLayer(std::string_view name);
    std::uint32_t AddPen(const Pen& pen);
    std::uint32_t AddSymbol(std::shared_ptr<const Scene> symbol);

    void AddCourse(std::uint32_t layer, std::uint32_t pen, ItemKind kind, std::span<const PlanePoint> course);
    /// Adds a ring as a hole to the last item, an area of the same layer. False if there is none.
    bool AddHole(std::uint32_t layer, std::span<const PlanePoint> ring);
    void AddDot(std::uint32_t layer, std::uint32_t pen, PlanePoint at);
    void AddCircle(std::uint32_t layer, std::uint32_t pen, PlanePoint centre, double radius);
    void AddArc(std::uint32_t layer, std::uint32_t pen, PlanePoint centre, double radius, double start,
                double end);
    void AddText(std::uint32_t layer, std::uint32_t pen, PlanePoint at, double height, double rotation,
                 Text text);
    void AddSymbolAt(std::uint32_t layer, std::uint32_t pen, std::uint32_t symbol,
                     const Placement& placement);
    /// The pen is for images that cannot be decoded, and for legends. @param placement of a pixel's corner
    void AddImage(std::uint32_t layer, std::uint32_t pen, const Image& image, const Placement& placement);
    /// The scene keeps the owner of images' bytes.
    void Keep(std::shared_ptr<const void> owner) { scene_.owners_.push_back(std::move(owner)); }

    /// The scene. The builder is empty afterwards.
    Scene Take();

private:
    /// Adds an item, unless its box is not finite or not wanted. False if it was not added.
    bool Add(std::uint32_t layer, std::uint32_t pen, ItemKind kind, std::span<const PlanePoint> vertices,
             const Box& box, std::uint32_t extra);

    Scene scene_;
    bool keepsAll_ = true;
    Box kept_;
    std::uint32_t entity_ = 0;
    std::uint32_t lastLayer_ = 0;
    bool lastIsKept_ = false;  ///< the last requested item is in the scene
};

/// The corners of an image's outer edge, in the order of a ring.
std::array<PlanePoint, 4> CornersOf(const Image& image, const Placement& placement);

/// The box of points; not finite if a coordinate is not.
Box BoxAround(std::span<const PlanePoint> points);

}  // namespace vexlator::render
