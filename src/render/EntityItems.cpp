// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/EntityItems.h"

#include "drawing/LineTypes.h"
#include "platform/AsciiCase.h"

#include <algorithm>
#include <cmath>

namespace vexlator::render {

namespace {

using drawing::Entity;
using drawing::Kind;

constexpr std::string_view holeName = "ISHOLE";
/// Codes of text alignment with a meaning: above the middle; the height is the diagonal of a box.
constexpr std::int32_t aboveMiddle = 106, diagonal = 24;

/// Hundredths of a millimetre. Larger weights in drawings are reduced to this.
constexpr std::int32_t mostWeight = 2000;

TextAnchor AnchorOf(std::int32_t alignment) {
    if (alignment == aboveMiddle) return TextAnchor::TopCentre;
    return alignment == diagonal ? TextAnchor::Diagonal : TextAnchor::Baseline;
}

/// In symbols these colours mean the colour of the feature.
bool IsColourOfFeature(drawing::Colour colour) {
    return colour == 0 || colour == drawing::defaultColour;
}

PlanePoint PlaceOf(const Entity& entity) {
    return entity.planVertices().front();
}

Placement PlacementOf(const Entity& insert) {
    const drawing::Shape& shape = insert.shape();
    double cosine = std::cos(shape.rotation), sine = std::sin(shape.rotation);
    return {{shape.scaleX * cosine, shape.scaleX * sine},
            {-shape.scaleY * sine, shape.scaleY * cosine},
            PlaceOf(insert)};
}

}  // namespace

void EntityItems::AddLayers(const drawing::Drawing& drawing, const std::vector<bool>& isShown) {
    for (std::size_t i = 0; i < drawing.layerCount(); ++i)
        layers_.push_back(isShown[i] ? std::optional(builder_.AddLayer(drawing.layers()[i].name))
                                     : std::nullopt);
}

void EntityItems::Add(drawing::Drawing& drawing) {
    drawing.forEach([&](const Entity& entity) {
        builder_.SetEntity(next_++);
        const std::optional<std::uint32_t>& layer = layers_[entity.layerIndex()];
        if (!layer || entity.vertexCount() == 0) return;
        layer_ = *layer;
        AddEntity(entity, drawing);
    });
}

void EntityItems::AddEntity(const Entity& entity, const drawing::Drawing& owner) {
    const drawing::Shape& shape = entity.shape();
    switch (entity.kindCode()) {
        case Kind::Polyline:
        case Kind::Line:
            return AddPolyline(entity);
        case Kind::Circle:
            return builder_.AddCircle(layer_, PenOf(entity.style(), entity.isFilled()), PlaceOf(entity),
                                      shape.size);
        case Kind::Arc:
            return builder_.AddArc(layer_, PenOf(entity.style(), false), PlaceOf(entity), shape.size,
                                   shape.startAngle, shape.endAngle);
        case Kind::Text:
            return AddText(entity);
        case Kind::Insert:
            return AddInsert(entity, owner);
        case Kind::Point:
            return builder_.AddDot(layer_, PenOf(entity.style(), false), PlaceOf(entity));
        case Kind::Other:
            return AddPolyline(entity);
    }
}

void EntityItems::AddPolyline(const Entity& entity) {
    std::span<const PlanePoint> course = entity.planVertices();
    if (course.size() == 1) return builder_.AddDot(layer_, PenOf(entity.style(), false), course[0]);
    if (IsHole(entity) && builder_.AddHole(layer_, course)) return;
    bool isFilled = entity.isFilled();
    ItemKind kind = isFilled ? ItemKind::Area : entity.isClosed() ? ItemKind::Ring : ItemKind::Line;
    builder_.AddCourse(layer_, PenOf(entity.style(), isFilled), kind, course);
}

void EntityItems::AddText(const Entity& entity) {
    const drawing::Shape& shape = entity.shape();
    builder_.AddText(layer_, PenOf(entity.style(), false), PlaceOf(entity), shape.size, shape.rotation,
                     {std::string(entity.text()), AnchorOf(shape.alignment)});
}

void EntityItems::AddInsert(const Entity& insert, const drawing::Drawing& owner) {
    std::uint32_t pen = PenOf(insert.style(), false);
    if (std::optional<std::uint32_t> symbol = SymbolNumber(insert.blockName(), owner))
        builder_.AddSymbolAt(layer_, pen, *symbol, PlacementOf(insert));
    else
        builder_.AddDot(layer_, pen, PlaceOf(insert));
}

std::optional<std::uint32_t> EntityItems::SymbolNumber(const std::string& name,
                                                       const drawing::Drawing& owner) {
    auto known = symbolNumbers_.find(name);
    if (known != symbolNumbers_.end()) return known->second;
    std::shared_ptr<const Scene> scene = symbols_.Of(name, owner, depth_);
    std::optional<std::uint32_t> number;
    if (scene) number = builder_.AddSymbol(std::move(scene));
    return symbolNumbers_[name] = number;
}

std::uint32_t EntityItems::PenOf(const drawing::Style& style, bool isFilled) {
    auto [known, isNew] = pens_[isFilled].try_emplace(&style);
    if (!isNew) return known->second;
    drawing::Colour line = isFilled ? style.outlineColour : style.colour;
    Pen pen;
    pen.line = LineColourOnPaper(line);
    pen.fill = isFilled ? FillColourOnPaper(style.fillColour) : 0;
    pen.weight = std::clamp(style.lineWeight, 0, mostWeight);
    pen.lineType = drawing::LineTypeNumber(style.lineType);
    pen.isHatched = isFilled && platform::SameNoCase(style.lineType, drawing::concreteHatch);
    pen.lineTakesColour = IsColourOfFeature(line);
    pen.fillTakesColour = IsColourOfFeature(style.fillColour);
    return known->second = builder_.AddPen(pen);
}

bool EntityItems::IsHole(const Entity& entity) {
    drawing::AttributeSet set = entity.attributeSet();
    if (set >= hasHoleName_.size()) hasHoleName_.resize(set + std::size_t{1});
    std::optional<bool>& isHole = hasHoleName_[set];
    if (!isHole) {
        drawing::XProperties attributes = entity.xproperties();
        isHole = false;
        for (std::size_t i = 0; i < attributes.count(); ++i) *isHole |= attributes.name(i) == holeName;
    }
    return *isHole;
}

}  // namespace vexlator::render
