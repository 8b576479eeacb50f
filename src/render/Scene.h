// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "drawing/PodVector.h"
#include "render/Palette.h"
#include "util/Placement.h"

#include <algorithm>
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

/// How an item is drawn.
struct Pen {
    Argb line = black, fill = 0;  ///< 0: not drawn
    std::int32_t weight = 0;      ///< hundredths of a millimetre; 0 is as thin as can be
    std::uint8_t lineType = 0;    ///< LineTypeNumber()
    /// In a symbol: drawn in the colour of the feature that it stands for.
    bool lineTakesColour = false, fillTakesColour = false;
    bool operator==(const Pen&) const = default;
};

/// What an item's vertices mean.
enum class ItemKind : std::uint8_t {
    Line,    ///< a course
    Ring,    ///< a course that is led back to its start
    Area,    ///< rings, filled by the odd-even rule and outlined
    Dot,     ///< a place
    Circle,  ///< centre; (radius, 0)
    Arc,     ///< centre; (radius, 0); (start, end) in radians
    Text,    ///< place; (height, rotation in radians)
    Symbol   ///< origin; x axis; y axis, as in Placement
};

/// Where a text's place lies in it.
enum class TextAnchor : std::uint8_t {
    Baseline,   ///< at the left end of its baseline
    TopLeft,    ///< at its upper left corner
    TopCentre,  ///< above its middle
    Diagonal    ///< as Baseline; its height is the diagonal of the box that it fills
};

struct Text {
    std::string characters;
    TextAnchor anchor = TextAnchor::Baseline;
};

/// A layer, and how its features look, for legends.
struct SceneLayer {
    std::string name;
    std::uint64_t items = 0;
    ItemKind kind = ItemKind::Line;  ///< of its first item
    Pen pen;
    std::uint32_t symbol = 0;
};

/// A box around ground relative to the scene's origin, never smaller than what it stands for.
struct NearBox {
    float minX, minY, maxX, maxY;
    bool Meets(const NearBox& other) const {
        // All four at once: which of them fails cannot be foreseen.
        return static_cast<bool>(static_cast<int>(minX <= other.maxX) & static_cast<int>(other.minX <= maxX) &
                                 static_cast<int>(minY <= other.maxY) & static_cast<int>(other.minY <= maxY));
    }
    void Widen(const NearBox& other);
};

/// A drawing as a list of what to paint, in drawing order. Made once, then painted as often as need be, from
/// several threads too. It holds its own copy of the vertices: 16 bytes each, and 48 bytes an item.
class Scene {
public:
    struct Item {
        std::uint64_t firstVertex;
        std::uint32_t vertices;
        std::uint32_t pen;
        std::uint32_t extra;  ///< Area: number of its first ring's end; Text, Symbol: its number
        ItemKind kind;
    };
    /// Where an item comes from.
    struct Source {
        std::uint32_t
            entity;  ///< its place in the drawing or package, counted from 0; that of an area's shell
        std::uint32_t layer;  ///< its place in Layers()
    };
    static constexpr std::size_t itemsPerBlock = 512;

    Scene() = default;
    Scene(Scene&&) = default;
    Scene& operator=(Scene&&) = default;

    /// All 0 when there are no items. Texts and symbols count with their size.
    const Box& Extents() const { return extents_; }
    std::span<const SceneLayer> Layers() const { return layers_; }
    std::size_t ItemCount() const { return items_.size(); }
    /// Features that have no place: no vertices, or coordinates that are not finite.
    std::uint64_t LeftOut() const { return leftOut_; }
    Box BoxOf(std::size_t item) const;

    const Item& At(std::size_t item) const { return items_[item]; }
    const Source& SourceOf(std::size_t item) const { return sources_[item]; }
    const Pen& PenOf(const Item& item) const { return pens_[item.pen]; }
    std::span<const PlanePoint> VerticesOf(const Item& item) const {
        return {vertices_.data() + item.firstVertex, item.vertices};
    }
    /// Where the rings of an area end, counted from its first vertex; the last is its number of vertices.
    std::span<const std::uint32_t> RingEndsOf(const Item& area) const;
    const Text& TextOf(const Item& item) const { return texts_[item.extra]; }
    const Scene& SymbolOf(const Item& item) const { return Symbol(item.extra); }
    const Scene& Symbol(std::uint32_t number) const { return *symbols_[number]; }
    std::shared_ptr<const Scene> SharedSymbol(std::uint32_t number) const { return symbols_[number]; }

    /// The items whose boxes meet a ground box, in drawing order.
    std::vector<std::uint32_t> ItemsIn(const Box& ground) const;
    /// Whether an item's box meets a ground box that Near() gave.
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
    std::uint64_t leftOut_ = 0;
};

/// Makes a scene, item after item.
class SceneBuilder {
public:
    /// Only items that meet the ground box are kept.
    void KeepOnly(const Box& ground);
    /// What the items to come stand for.
    void SetEntity(std::uint32_t entity) { entity_ = entity; }
    /// Numbers that items refer to.
    std::uint32_t AddLayer(std::string_view name);
    std::uint32_t AddPen(const Pen& pen);
    std::uint32_t AddSymbol(std::shared_ptr<const Scene> symbol);

    void AddCourse(std::uint32_t layer, std::uint32_t pen, ItemKind kind, std::span<const PlanePoint> course);
    /// A ring that the item added last, an area of the same layer, has as a hole. False when there is none.
    bool AddHole(std::uint32_t layer, std::span<const PlanePoint> ring);
    void AddDot(std::uint32_t layer, std::uint32_t pen, PlanePoint at);
    void AddCircle(std::uint32_t layer, std::uint32_t pen, PlanePoint centre, double radius);
    void AddArc(std::uint32_t layer, std::uint32_t pen, PlanePoint centre, double radius, double start,
                double end);
    void AddText(std::uint32_t layer, std::uint32_t pen, PlanePoint at, double height, double rotation,
                 Text text);
    void AddSymbolAt(std::uint32_t layer, std::uint32_t pen, std::uint32_t symbol,
                     const Placement& placement);

    /// The scene; the builder is then empty.
    Scene Take();

private:
    /// Adds an item unless its box is not finite or not wanted. False when it was not added.
    bool Add(std::uint32_t layer, std::uint32_t pen, ItemKind kind, std::span<const PlanePoint> vertices,
             const Box& box, std::uint32_t extra);

    Scene scene_;
    bool keepsAll_ = true;
    Box kept_;
    std::uint32_t entity_ = 0;
    std::uint32_t lastLayer_ = 0;
    bool lastIsKept_ = false;  ///< the item that was asked for last is in the scene
};

/// The box of points; not finite when a coordinate is not.
Box BoxAround(std::span<const PlanePoint> points);

}  // namespace vexlator::render
