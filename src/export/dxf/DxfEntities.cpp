// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/dxf/DxfEntities.h"

#include "drawing/Palette.h"

#include <algorithm>
#include <cmath>

namespace vexlator::exporter {

using drawing::EntityView;
using drawing::Kind;
using formats::DxfColour;
using formats::DxfLook;

namespace {

constexpr drawing::Colour paletteSize = 256;
constexpr std::int32_t aboveMiddle = 106;  ///< a text's alignment

int NearestIndex(std::uint32_t rgb) {
    auto distance = [rgb](drawing::Colour index) {
        std::uint32_t other = drawing::RgbOf(index);
        int sum = 0;
        for (int shift : {0, 8, 16}) {
            int difference = static_cast<int>(rgb >> shift & 0xFF) - static_cast<int>(other >> shift & 0xFF);
            sum += difference * difference;
        }
        return sum;
    };
    int nearest = 1;
    for (int index = 2; index < static_cast<int>(paletteSize); ++index)
        if (distance(static_cast<drawing::Colour>(index)) < distance(static_cast<drawing::Colour>(nearest)))
            nearest = index;
    return nearest;
}

DxfColour NewColour(drawing::Colour colour) {
    if (colour == 0) return {.index = static_cast<int>(drawing::defaultColour)};
    if (colour < paletteSize) return {.index = static_cast<int>(colour)};
    std::uint32_t rgb = drawing::RgbOf(colour);
    return {.index = NearestIndex(rgb), .rgb = rgb};
}

}  // namespace

DxfEntities::DxfEntities(formats::DxfWriter& writer, const CadSettings& settings,
                         std::vector<CadLayer> layers, Place place)
    : writer_(writer), settings_(settings), layers_(std::move(layers)), place_(place) {
    sine_ = std::sin(settings.turn);
    cosine_ = std::cos(settings.turn);
}

void DxfEntities::Add(const EntityView& entity) {
    const CadLayer& layer = layers_[entity.layerIndex()];
    DxfLook look = LookOf(entity);
    ReadValues(entity);
    if (entity.kindCode() != Kind::Polyline) WriteHatch();
    switch (entity.kindCode()) {
        case Kind::Point: {
            drawing::Point at = Moved(entity.position());
            writer_.AddPoint(look, at.x, at.y, at.z, values_);
            break;
        }
        case Kind::Insert:
            AddInsert(entity, look);
            break;
        case Kind::Polyline:
        case Kind::Line:
            AddPolyline(entity, look);
            break;
        case Kind::Text:
            AddText(entity, look);
            break;
        case Kind::Circle:
        case Kind::Arc:
            AddRound(entity, look);
            break;
        case Kind::Other:
            ++leftOut_;
            return;
    }
    bool isAnnotated = layer.annotation && place_ == Place::Ground && !MarksOf(entity).isHole;
    if (isAnnotated) Annotate(entity, layer);
}

DxfColour DxfEntities::ColourOf(drawing::Colour colour, const CadLayer& layer) const {
    bool isOfInsert = place_ == Place::Symbol && (colour == 0 || colour == drawing::defaultColour);
    if (isOfInsert) return {.index = DxfColour::byBlock};
    if (place_ == Place::Ground && colour == layer.colour) return {};
    auto [known, isNew] = colours_.try_emplace(colour);
    if (isNew) known->second = NewColour(colour);
    return known->second;
}

DxfLook DxfEntities::LookOf(const EntityView& entity) const {
    const CadLayer& layer = layers_[entity.layerIndex()];
    const drawing::Style& style = entity.style();
    return {.layer = layer.name,
            .lineType = style.lineType,
            .colour = ColourOf(style.colour, layer),
            .weight = style.lineWeight};
}

void DxfEntities::ReadValues(const EntityView& entity) {
    values_.clear();
    drawing::XPropertiesView attributes = entity.xproperties();
    drawing::ValueCursor cursor = attributes.values();
    for (std::size_t i = 0; !cursor.AtEnd(); ++i) values_.emplace_back(attributes.name(i), cursor.Next());
}

drawing::Point DxfEntities::Moved(const drawing::Point& point) const {
    if (place_ == Place::Symbol) return point;
    double x = point.x - settings_.originX, y = point.y - settings_.originY;
    if (settings_.turn == 0) return {x, y, point.z};
    return {x * cosine_ - y * sine_, x * sine_ + y * cosine_, point.z};
}

void DxfEntities::AddPolyline(const EntityView& entity, const DxfLook& look) {
    std::span<const util::PlanePoint> plan = entity.planVertices();
    points_.clear();
    for (const util::PlanePoint& vertex : plan) {
        drawing::Point moved = Moved({vertex.x, vertex.y, 0});
        points_.push_back({moved.x, moved.y});
    }
    std::span<const double> heights = entity.heights();
    bool isArea = entity.isClosed() && points_.size() > 2;
    if (isArea && points_.front() == points_.back()) {
        points_.pop_back();  // the flag closes it
        heights = heights.first(std::min(heights.size(), points_.size()));
    }
    bool isFilled = isArea && entity.isFilled();
    if (!isFilled || !sequence_.Joins(MarksOf(entity))) WriteHatch();
    if (!points_.empty()) writer_.AddPolyline(look, points_, heights, entity.isClosed(), values_);
    if (!isFilled) return sequence_.End();
    if (rings_.empty()) {
        sequence_.Joins(MarksOf(entity));
        hatchLook_ = look;
        hatchLook_.colour = ColourOf(entity.style().fillColour, layers_[entity.layerIndex()]);
        hatchLook_.weight = 0;
        hatchLook_.lineType = {};
    }
    rings_.push_back(points_);
}

/// Looks hold names of entities that may have left the drawing; so do not keep them beyond a chunk: see
/// Finish().
void DxfEntities::WriteHatch() {
    if (rings_.empty()) return;
    std::vector<std::span<const util::PlanePoint>> rings(rings_.begin(), rings_.end());
    if (writer_.HasHatches())
        writer_.AddHatch(hatchLook_, rings);
    else
        ++fillsLost_;
    rings_.clear();
}

void DxfEntities::AddInsert(const EntityView& entity, const DxfLook& look) {
    drawing::Point at = Moved(entity.insertionPoint());
    const drawing::Shape& shape = entity.shape();
    if (shape.name.empty()) return writer_.AddPoint(look, at.x, at.y, at.z, values_);
    formats::DxfInsert insert{.block = shape.name,
                              .x = at.x,
                              .y = at.y,
                              .z = at.z,
                              .scaleX = shape.scaleX,
                              .scaleY = shape.scaleY,
                              .rotation = shape.rotation + (place_ == Place::Ground ? settings_.turn : 0),
                              .showsAttributes = settings_.attribsVis};
    if (settings_.asAttribs)
        writer_.AddInsertWithAttributes(look, insert, values_);
    else
        writer_.AddInsert(look, insert, values_);
}

void DxfEntities::AddText(const EntityView& entity, const DxfLook& look) {
    drawing::Point at = Moved(entity.insertionPoint());
    const drawing::Shape& shape = entity.shape();
    writer_.AddText(look,
                    {.text = entity.text(),
                     .style = shape.name,
                     .x = at.x,
                     .y = at.y,
                     .z = at.z,
                     .height = shape.size > 0 ? shape.size : 1,
                     .rotation = shape.rotation + (place_ == Place::Ground ? settings_.turn : 0),
                     .isCentred = shape.alignment == aboveMiddle},
                    values_);
}

void DxfEntities::AddRound(const EntityView& entity, const DxfLook& look) {
    drawing::Point at = Moved(entity.centre());
    const drawing::Shape& shape = entity.shape();
    double turn = place_ == Place::Ground ? settings_.turn : 0;
    if (entity.kindCode() == Kind::Circle)
        writer_.AddCircle(look, at.x, at.y, at.z, shape.size, values_);
    else
        writer_.AddArc(look, at.x, at.y, at.z, shape.size, shape.startAngle + turn, shape.endAngle + turn,
                       values_);
}

void DxfEntities::Annotate(const EntityView& entity, const CadLayer& layer) {
    auto value = entity.xproperties().find(layer.annotation->attribute);
    if (!value || value->value().empty() || entity.vertexCount() == 0) return;
    drawing::Point at = Moved(entity.vertex(entity.vertexCount() / 2));
    writer_.AddText({.layer = layer.annotationLayer, .lineType = {}, .colour = {}},
                    {.text = value->value(),
                     .style = {},
                     .x = at.x,
                     .y = at.y,
                     .z = at.z,
                     .height = layer.annotation->height},
                    {});
}

}  // namespace vexlator::exporter
