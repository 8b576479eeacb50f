// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gis/SourceEntities.h"

#include "gis/FeatureStyle.h"
#include "gis/Ogr.h"
#include "platform/Errors.h"
#include "util/Counted.h"

#include <algorithm>

namespace vexlator::gis {

namespace {

constexpr std::int32_t lineWeight = 30;
constexpr std::uint64_t copiesAllowed = std::uint64_t{64} << 20, copiesPerByte = 64;

}  // namespace

SourceEntities::SourceEntities(drawing::Drawing& drawing, SourceAttributes& attributes, Options options)
    : drawing_(drawing),
      attributes_(attributes),
      options_(std::move(options)),
      pointStyle_(drawing.activeStyle()),
      lineStyle_(pointStyle_) {
    lineStyle_.lineWeight = lineWeight;
    areaStyle_ = lineStyle_;
    areaStyle_.fillColour = areaStyle_.colour;
}

bool SourceEntities::Add(OGRFeatureH feature) {
    OGRGeometryH geometry = OGR_F_GetGeometryRef(feature);
    if (!geometry) return false;
    Geometry straight;
    if (OGR_G_HasCurveGeometry(geometry, 0)) {
        straight.reset(OGR_G_GetLinearGeometry(geometry, 0, nullptr));
        geometry = straight.get();
    }
    parts_.clear();
    surfaces_ = 0;
    Collect(geometry);
    if (parts_.empty()) return false;
    std::size_t bytes = attributes_.Read(feature);
    if (AddLabel(feature)) {
        attributes_.AddTo(drawing_, 0, false);
        return true;
    }
    for (std::size_t part = 0; part < parts_.size(); ++part) {
        AddPart(parts_[part]);
        AddAttributes(part, bytes);
    }
    return true;
}

void SourceEntities::Collect(OGRGeometryH geometry) {
    if (OGR_G_IsEmpty(geometry)) return;
    int count = OGR_G_GetGeometryCount(geometry);
    switch (OGR_GT_Flatten(OGR_G_GetGeometryType(geometry))) {
        case wkbPoint:
            return parts_.push_back({geometry, PartKind::Point, 0});
        case wkbLineString:
            return parts_.push_back({geometry, PartKind::Line, 0});
        case wkbPolygon:
        case wkbTriangle:
            ++surfaces_;
            for (int i = 0; i < count; ++i)
                parts_.push_back(
                    {OGR_G_GetGeometryRef(geometry, i), i == 0 ? PartKind::Ring : PartKind::Hole, surfaces_});
            return;
        default:
            for (int i = 0; i < count; ++i) Collect(OGR_G_GetGeometryRef(geometry, i));
    }
}

void SourceEntities::AddPart(const Part& part) {
    if (part.kind == PartKind::Point)
        return AddSymbol(OGR_G_GetX(part.geometry, 0), OGR_G_GetY(part.geometry, 0),
                         OGR_G_GetZ(part.geometry, 0));
    bool isArea = part.kind != PartKind::Line;
    if (isArea && BecomesSymbol()) {
        OGREnvelope box;
        OGR_G_GetEnvelope(part.geometry, &box);
        return AddSymbol((box.MinX + box.MaxX) / 2, (box.MinY + box.MaxY) / 2, 0);
    }
    const drawing::Style& style = isArea ? areaStyle_ : lineStyle_;
    if (!(drawing_.activeStyle() == style)) drawing_.setActiveStyle(style);
    drawing::Entity polyline = drawing_.addPolyline();
    AddVertices(part.geometry);
    polyline.setClosed(isArea);
    polyline.setFilled(isArea);
}

void SourceEntities::AddSymbol(double x, double y, double z) {
    if (!(drawing_.activeStyle() == pointStyle_)) drawing_.setActiveStyle(pointStyle_);
    drawing_.addInsert({x, y, z}, options_.symbol, 1, 1, 0);
}

bool SourceEntities::BecomesSymbol() const {
    if (options_.smallArea <= 0 || parts_.size() != 1) return false;
    OGREnvelope box;
    OGR_G_GetEnvelope(parts_.front().geometry, &box);
    return box.MaxX - box.MinX <= options_.smallArea && box.MaxY - box.MinY <= options_.smallArea;
}

void SourceEntities::AddVertices(OGRGeometryH geometry) {
    const int count = OGR_G_GetPointCount(geometry), stride = sizeof(util::PlanePoint);
    std::span<util::PlanePoint> plan = drawing_.extendPlan(static_cast<std::size_t>(count));
    bool hasHeights = OGR_G_Is3D(geometry) != 0;
    if (hasHeights) heights_.resize(plan.size());
    OGR_G_GetPoints(geometry, &plan[0].x, stride, &plan[0].y, stride, hasHeights ? heights_.data() : nullptr,
                    sizeof(double));
    if (!hasHeights || std::ranges::all_of(heights_, [](double z) { return z == 0; })) return;
    drawing::Entity entity = drawing_.entityAt(drawing_.entityCount() - 1);
    for (std::size_t i = 0; i < plan.size(); ++i) {
        drawing::Point vertex = entity.vertex(i);
        vertex.z = heights_[i];
        entity.setVertex(i, vertex);
    }
}

void SourceEntities::AddAttributes(std::size_t part, std::size_t bytes) {
    const Part& current = parts_[part];
    std::uint64_t surface = surfaces_ > 1 ? current.surface : 0;
    bool isHole = current.kind == PartKind::Hole;
    if (part > 0) {
        const Part& before = parts_[part - 1];
        bool same = (surfaces_ <= 1 || before.surface == current.surface) &&
                    (before.kind == PartKind::Hole) == isHole;
        if (same) return drawing_.shareValues();
        // Every surface has all values, so a small source could make a huge drawing.
        copiedBytes_ += bytes;
        if (copiedBytes_ > copiesAllowed + copiesPerByte * options_.sourceBytes)
            throw platform::ReadError(
                "", "",
                "a feature has too many surfaces for its values: " + util::Counted(parts_.size(), "part"));
    }
    attributes_.AddTo(drawing_, surface, isHole);
}

/// A point with a text becomes that text.
bool SourceEntities::AddLabel(OGRFeatureH feature) {
    if (parts_.size() != 1 || parts_.front().kind != PartKind::Point) return false;
    std::optional<Label> label = LabelOf(feature);
    if (!label || label->text.empty()) return false;
    OGRGeometryH at = parts_.front().geometry;
    if (!(drawing_.activeStyle() == pointStyle_)) drawing_.setActiveStyle(pointStyle_);
    drawing_.addText({OGR_G_GetX(at, 0), OGR_G_GetY(at, 0), OGR_G_GetZ(at, 0)}, label->text, label->height,
                     label->angle);
    return true;
}

}  // namespace vexlator::gis
