// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/shapefile/ShapefileLayer.h"

#include "platform/Paths.h"
#include "util/Counted.h"
#include "util/Numbers.h"
#include "util/Paths.h"

namespace vexlator::exporter {

using drawing::EntityView;
using drawing::Kind;

namespace {

constexpr std::size_t batchPoints = std::size_t{1}
                                    << 18;  ///< conversion is fastest for many vertices at once
constexpr double closingDistance = 0.001;   ///< drawing units; rings with nearer ends are already closed

bool HasZero(const util::PlanePoint& point) {
    return point.x == 0 || point.y == 0;
}

bool IsPolygon(EntityView entity) {
    return entity.isClosed() || entity.xproperties().find("Area").has_value();
}

}  // namespace

ShapefileLayer::ShapefileLayer(config::Run& run, const ShapefileSettings& settings,
                               coords::frmLatLng* converter, const ExportLayer& layer,
                               std::string_view targetPath, platform::OutputSet& files)
    : run_(run),
      layer_(layer),
      converter_(converter),
      shapes_(files.Add(util::JoinPath(targetPath, layer.fileName + ".SHP")),
              files.Add(util::JoinPath(targetPath, layer.fileName + ".SHX"))),
      table_(run, layer, settings.suppressNA, util::JoinPath(targetPath, layer.fileName), files) {}

void ShapefileLayer::Write(const LayerPart& part) {
    for (EntityView entity : part) {
        Gather(entity);
        if (points_.size() >= batchPoints) WriteBatch();
    }
    WriteBatch();
}

std::uint64_t ShapefileLayer::Finish() {
    shapes_.Finish();
    table_.Finish();
    Report();
    return shapes_.RecordCount();
}

void ShapefileLayer::Gather(EntityView entity) {
    switch (entity.kindCode()) {
        case Kind::Point:
        case Kind::Insert: {
            drawing::Point at = entity.position();
            points_.push_back({at.x, at.y});
            items_.push_back({entity, false, false, 1});
            break;
        }
        case Kind::Polyline:
            GatherPolyline(entity);
            break;
        default:
            leftOut_.Add(entity.kindCode());
            break;
    }
}

void ShapefileLayer::GatherPolyline(EntityView entity) {
    std::span<const util::PlanePoint> vertices = entity.planVertices();
    std::size_t begin = points_.size();
    points_.insert(points_.end(), vertices.begin(), vertices.end());
    if (vertices.size() == 1) {
        // A line or area needs more than one position. A small triangle marks the place.
        util::PlanePoint at = vertices[0];
        points_.push_back({at.x, at.y + 1});
        points_.push_back({at.x + 1, at.y + 1});
    }
    bool polygon = IsPolygon(entity);
    if (polygon && points_.size() > begin) {
        util::PlanePoint first = points_[begin], last = points_.back();
        if (util::Distance(first.x, first.y, last.x, last.y) > closingDistance) points_.push_back(first);
    }
    items_.push_back({entity, true, polygon, points_.size() - begin});
}

void ShapefileLayer::ConvertBatch() {
    std::vector<util::PlanePoint> wanted;
    wanted.reserve(points_.size());
    for (const util::PlanePoint& point : points_)
        if (!HasZero(point)) wanted.push_back(point);
    convertible_ += wanted.size();
    unconverted_ += converter_->GridToLatLng(wanted);
    auto next = wanted.begin();
    for (util::PlanePoint& point : points_)
        if (!HasZero(point)) point = *next++;
}

void ShapefileLayer::WriteBatch() {
    if (converter_) ConvertBatch();
    std::span<const util::PlanePoint> left = points_;
    for (const Item& item : items_) {
        std::span<const util::PlanePoint> points = left.first(item.points);
        left = left.subspan(item.points);
        if (item.polygon)
            shapes_.AddPolygon(points);
        else if (item.polyline)
            shapes_.AddPolyline(points);
        else
            shapes_.AddPoint(points[0]);
        table_.Add(item.entity);
    }
    items_.clear();
    points_.clear();
}

void ShapefileLayer::Report() {
    leftOut_.Report(run_, layer_.layer.name);
    if (unconverted_ > 0)
        run_.Ui().Report(layer_.layer.name + ": " + util::Counted(unconverted_, "vertex", "vertices") +
                         " outside the coordinate conversion, left in grid coordinates");
}

}  // namespace vexlator::exporter
