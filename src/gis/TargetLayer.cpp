// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gis/TargetLayer.h"

#include "gis/TargetStyle.h"
#include "platform/Errors.h"
#include "platform/Signals.h"
#include "raster/Gdal.h"
#include "util/Counted.h"

#include <algorithm>
#include <cmath>
#include <cpl_string.h>
#include <limits>

namespace vexlator::gis {

using drawing::EntityView;
using drawing::Kind;

namespace {

constexpr std::size_t batchPoints = 16384;

bool IsFinite(const util::PlanePoint& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

}  // namespace

TargetLayer::TargetLayer(config::Run& run, const GisFormat& format, const exporter::ExportLayer& layer,
                         const drawing::Drawing& drawing, coords::frmLatLng* converter)
    : run_(run),
      format_(format),
      layer_(layer),
      converter_(converter),
      columns_(run, format, layer, drawing) {}

// --- Looking

void TargetLayer::Look(const exporter::LayerPart& part) {
    for (EntityView entity : part) {
        ShapeKind kind = ShapeKindOf(entity);
        if (kind == ShapeKind::LeftOut || !Takes(kind)) continue;
        columns_.Look(entity);
        hasPlaces_ |= kind == ShapeKind::Place;
        hasLines_ |= kind == ShapeKind::Line;
        hasAreas_ |= kind == ShapeKind::Area;
        hasTexts_ |= entity.kindCode() == Kind::Text;
        hasHeights_ |= !entity.heights().empty();
        if (kind == ShapeKind::Area && exporter::MarksOf(entity).surface > 1) hasSurfaces_ = true;
        drawing::Box box = entity.extents();
        if (kind == ShapeKind::Nothing || !std::isfinite(box.minX + box.minY + box.maxX + box.maxY)) {
            hasNothing_ = true;
            continue;
        }
        if (!bounds_) bounds_ = OGREnvelope{};
        bounds_->Merge(box.minX, box.minY);
        bounds_->Merge(box.maxX, box.maxY);
    }
}

bool TargetLayer::Takes(ShapeKind kind) const {
    bool isDrawn = kind == ShapeKind::Line || kind == ShapeKind::Area;
    return !only_ || *only_ == (isDrawn ? kind : ShapeKind::Place);
}

OGRwkbGeometryType TargetLayer::GeometryType() const {
    if (format_.geometry == LayerGeometry::Any) return OGR_GT_SetZ(wkbUnknown);
    if (format_.geometry == LayerGeometry::OneKind)
        return OGR_GT_SetZ(hasAreas_ ? wkbMultiPolygon : hasLines_ ? wkbMultiLineString : wkbPoint);
    OGRwkbGeometryType type = wkbUnknown;
    if (hasPlaces_ && !hasLines_ && !hasAreas_) type = wkbPoint;
    if (hasLines_ && !hasPlaces_ && !hasAreas_) type = wkbLineString;
    if (hasAreas_ && !hasPlaces_ && !hasLines_) type = hasSurfaces_ ? wkbMultiPolygon : wkbPolygon;
    return hasHeights_ ? OGR_GT_SetZ(type) : type;
}

bool TargetLayer::Fits(OGRwkbGeometryType type) const {
    bool holdsPlaces = false, holdsLines = false, holdsAreas = false;
    switch (OGR_GT_Flatten(type)) {
        case wkbUnknown:
        case wkbGeometryCollection:
            return true;
        case wkbPoint:
        case wkbMultiPoint:
            holdsPlaces = true;
            break;
        case wkbLineString:
        case wkbMultiLineString:
            holdsLines = true;
            break;
        case wkbPolygon:
            holdsAreas = !hasSurfaces_;
            break;
        case wkbMultiPolygon:
            holdsAreas = true;
            break;
        default:
            break;
    }
    return (holdsPlaces || !hasPlaces_) && (holdsLines || !hasLines_) && (holdsAreas || !hasAreas_);
}

void TargetLayer::Create(GDALDatasetH dataset, OGRSpatialReferenceH system, const std::string& name,
                         const std::string& file, std::span<const std::string> options) {
    char** list = nullptr;
    for (const std::string& option : options) list = CSLAddString(list, option.c_str());
    // Columns that a package adds of itself.
    for (const auto& [option, column] : {std::pair{"FID", "fid"}, std::pair{"GEOMETRY_NAME", "geom"}}) {
        std::string own = column;
        while (columns_.Has(own)) own += '_';
        if (format_.layersShareFile) list = CSLSetNameValue(list, option, own.c_str());
    }
    target_ = GDALDatasetCreateLayer(dataset, name.c_str(), system, GeometryType(), list);
    CSLDestroy(list);
    if (!target_) throw platform::WriteError(file, raster::TakeReason());
    Begin(file);
}

void TargetLayer::AddTo(OGRLayerH layer, OGRSpatialReferenceH system, const std::string& file) {
    target_ = layer;
    const std::string& code = layer_.layer.name;
    if (hasHeights_ && !OGR_GT_HasZ(OGR_L_GetGeomType(layer))) {
        hasHeights_ = false;
        run_.Ui().Report(code + ": heights left out, because the layer that is there has none");
    }
    OGRSpatialReferenceH own = OGR_L_GetSpatialRef(layer);
    const char* const options[] = {"IGNORE_DATA_AXIS_TO_SRS_AXIS_MAPPING=YES", nullptr};
    if (own && system && !OSRIsSameEx(own, system, options)) {
        OSRSetAxisMappingStrategy(own, OAMS_TRADITIONAL_GIS_ORDER);
        transformation_.reset(OCTNewCoordinateTransformation(system, own));
        if (!transformation_) throw platform::WriteError(file, code + ": " + raster::TakeReason());
        const char* name = OSRGetName(own);
        run_.Ui().Report(code + ": converted to the layer's own coordinate system, " +
                         (name ? name : "unnamed"));
    }
    Begin(file);
}

void TargetLayer::Begin(const std::string& file) {
    file_ = file;
    if (format_.geometry != LayerGeometry::AsSeen) targetType_ = OGR_L_GetGeomType(target_);
    columns_.AddTo(target_, hasTexts_, file_);
    feature_.reset(OGR_F_Create(OGR_L_GetLayerDefn(target_)));
}

// --- Writing

void TargetLayer::Write(const exporter::LayerPart& part) {
    for (EntityView entity : part) {
        Gather(entity);
        if (points_.size() >= batchPoints || items_.size() >= batchPoints) WriteBatch();
    }
    WriteBatch();
}

void TargetLayer::Gather(const EntityView& entity) {
    ShapeKind kind = ShapeKindOf(entity);
    if (!Takes(kind)) return;
    if (kind == ShapeKind::LeftOut) {
        ++leftOut_[static_cast<std::size_t>(entity.kindCode())];
        return;
    }
    std::size_t begin = points_.size();
    if (kind != ShapeKind::Nothing) AppendVertices(entity, kind, points_, heights_);
    items_.push_back({entity, kind, points_.size() - begin});
}

/// Marks positions that cannot be converted, because metres must not pass for degrees. Heights stay, because
/// imports leave them too.
void TargetLayer::ConvertBatch() {
    if (!converter_) return;
    const std::vector<util::PlanePoint> grid = points_;
    if (converter_->GridToLatLng(points_, {}, coords::Rounding::None) == 0) return;
    for (std::size_t i = 0; i < points_.size(); ++i)
        if (points_[i] == grid[i] && !converter_->GridToLatLng(grid[i].x, grid[i].y, 0, false))
            points_[i].x = std::numeric_limits<double>::quiet_NaN();
}

void TargetLayer::WriteBatch() {
    platform::ThrowIfStopped();
    ConvertBatch();
    std::size_t begin = 0;
    for (const Item& item : items_) {
        WriteItem(item, begin);
        begin += item.points;
    }
    items_.clear();
    points_.clear();
    heights_.clear();
}

void TargetLayer::WriteItem(const Item& item, std::size_t begin) {
    std::span<const util::PlanePoint> points = std::span(points_).subspan(begin, item.points);
    bool hasPlace = !points.empty() && std::ranges::all_of(points, IsFinite);
    if (hasPlace && item.kind == ShapeKind::Area) return AddRing(item, begin);
    rings_.End();
    BeginFeature(item.entity);
    if (!hasPlace) {
        if (item.kind != ShapeKind::Nothing) ++unplaced_;
        return EndFeature();
    }
    bool isPoint = item.kind == ShapeKind::Place;
    geometry_.reset(OGR_G_CreateGeometry(isPoint ? wkbPoint : wkbLineString));
    SetPoints(geometry_.get(), begin, item.points);
    if (item.entity.kindCode() == Kind::Text) columns_.FillText(feature_.get(), item.entity.text());
    SetStyle(item.entity, item.kind);
    EndFeature();
}

void TargetLayer::SetPoints(OGRGeometryH geometry, std::size_t begin, std::size_t count) const {
    const util::PlanePoint* points = points_.data() + begin;
    constexpr int stride = sizeof(util::PlanePoint);
    if (count == 1 && hasHeights_)
        OGR_G_SetPoint(geometry, 0, points->x, points->y, heights_[begin]);
    else if (count == 1)
        OGR_G_SetPoint_2D(geometry, 0, points->x, points->y);
    else
        OGR_G_SetPoints(geometry, static_cast<int>(count), &points->x, stride, &points->y, stride,
                        hasHeights_ ? heights_.data() + begin : nullptr, sizeof(double));
}

/// A ring begins a feature, a further surface of the pending one, or is a hole of its last surface.
void TargetLayer::AddRing(const Item& item, std::size_t begin) {
    exporter::RingMarks marks = exporter::MarksOf(item.entity);
    bool joins = rings_.Joins(marks);
    if (!joins) {
        BeginFeature(item.entity);
        SetStyle(item.entity, item.kind);
        geometry_.reset(OGR_G_CreateGeometry(hasSurfaces_ ? wkbMultiPolygon : wkbPolygon));
    }
    OGRGeometryH ring = OGR_G_CreateGeometry(wkbLinearRing), surface = geometry_.get();
    SetPoints(ring, begin, item.points);
    if (hasSurfaces_ && (!joins || !marks.isHole)) {
        surface = OGR_G_CreateGeometry(wkbPolygon);
        OGR_G_AddGeometryDirectly(surface, ring);
        OGR_G_AddGeometryDirectly(geometry_.get(), surface);
    } else {
        if (hasSurfaces_) surface = OGR_G_GetGeometryRef(surface, OGR_G_GetGeometryCount(surface) - 1);
        OGR_G_AddGeometryDirectly(surface, ring);
    }
}

/// The one before is complete now.
void TargetLayer::BeginFeature(const EntityView& entity) {
    EndFeature();
    isPending_ = true;
    OGR_F_SetFID(feature_.get(), OGRNullFID);
    columns_.Fill(feature_.get(), entity);
}

void TargetLayer::SetStyle(const EntityView& entity, ShapeKind kind) {
    if (!format_.hasStyles) return;
    bool isLast = lastStyle_ == &entity.style() && lastKind_ == kind && entity.isFilled() == lastFilled_;
    if (!isLast || entity.kindCode() == Kind::Text) styleText_ = StyleText(entity, kind);
    lastStyle_ = entity.kindCode() == Kind::Text ? nullptr : &entity.style();
    lastKind_ = kind;
    lastFilled_ = entity.isFilled();
    OGR_F_SetStyleString(feature_.get(), styleText_.c_str());
}

void TargetLayer::EndFeature() {
    if (!isPending_) return;
    isPending_ = false;
    ++features_;
    if (geometry_ && transformation_ &&
        OGR_G_Transform(geometry_.get(), transformation_.get()) != OGRERR_NONE) {
        geometry_.reset();
        ++unplaced_;
    }
    if (geometry_) ++withPlace_;
    if (geometry_ && OGR_GT_Flatten(targetType_) != wkbUnknown)
        geometry_.reset(OGR_G_ForceTo(geometry_.release(), targetType_, nullptr));
    OGR_F_SetGeometryDirectly(feature_.get(), geometry_.release());
    if (OGR_L_CreateFeature(target_, feature_.get()) != OGRERR_NONE)
        throw platform::WriteError(file_, raster::TakeReason());
}

std::uint64_t TargetLayer::Finish(config::ConversionReport& report) {
    EndFeature();
    feature_.reset();
    if (features_ > 0) columns_.Report(report);
    static constexpr std::array<std::string_view, std::tuple_size_v<decltype(leftOut_)>> names = {
        "point", "symbol", "polyline", "circle", "text", "arc", "line", "other"};
    for (std::size_t kind = 0; kind < leftOut_.size(); ++kind)
        report.Lose(config::LossReport::Kind::LeftOut, layer_.layer.name, names[kind], leftOut_[kind]);
    if (unplaced_ > 0)
        run_.Ui().Report(layer_.layer.name + ": " + util::Counted(unplaced_, "feature") +
                         " without a geometry, because " +
                         (converter_ || transformation_ ? "it is outside the coordinate conversion"
                                                        : "a coordinate is not a number"));
    return features_;
}

}  // namespace vexlator::gis
