// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/kml/KmlLayer.h"

#include "export/photos/PhotoNames.h"
#include "export/photos/Photos.h"
#include "util/Counted.h"
#include "util/Numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

namespace vexlator::exporter {

using drawing::EntityView;
using drawing::Kind;
using formats::KmlShape;

namespace {

constexpr std::size_t batchPoints = 16384;

bool IsOnGlobe(const util::PlanePoint& degrees) {
    return std::fabs(degrees.x) <= 180 && std::fabs(degrees.y) <= 90;
}

/// A ring of three or more positions is an area. An entity with one position is a point, whatever its kind.
KmlShape ShapeOf(std::size_t positions, bool closed) {
    if (closed && positions >= 4) return KmlShape::Area;
    return positions >= 2 ? KmlShape::Line : KmlShape::Point;
}

std::string_view FirstValue(EntityView entity) {
    drawing::ValueCursor values = entity.xproperties().values();
    return values.AtEnd() ? "" : values.Next();
}

}  // namespace

KmlLayer::KmlLayer(config::Run& run, const KmlSettings& settings, coords::frmLatLng& converter,
                   const ExportLayer& layer, formats::KmlWriter& writer)
    : run_(run), settings_(settings), converter_(converter), layer_(layer), writer_(writer) {}

void KmlLayer::Write(const LayerPart& part) {
    for (EntityView entity : part) {
        Gather(entity);
        if (points_.size() >= batchPoints || items_.size() >= batchPoints) WriteBatch();
    }
    WriteBatch();
}

std::uint64_t KmlLayer::Finish() {
    leftOut_.Report(run_, layer_.layer.name);
    if (unplaced_ > 0)
        run_.Ui().Report(layer_.layer.name + ": " + util::Counted(unplaced_, "placemark") +
                         " without a position, because it is outside the coordinate conversion");
    return placemarks_;
}

void KmlLayer::Gather(EntityView entity) {
    Kind kind = entity.kindCode();
    if (kind != Kind::Point && kind != Kind::Insert && kind != Kind::Polyline) return leftOut_.Add(kind);
    std::size_t begin = points_.size();
    std::span<const util::PlanePoint> vertices = entity.planVertices();
    std::span<const double> heights = entity.heights();
    if (kind != Kind::Polyline) {
        vertices = vertices.first(std::min<std::size_t>(vertices.size(), 1));
        heights = heights.first(std::min<std::size_t>(heights.size(), 1));
    }
    points_.insert(points_.end(), vertices.begin(), vertices.end());
    heights_.insert(heights_.end(), heights.begin(), heights.end());
    heights_.resize(points_.size());
    bool closed = kind == Kind::Polyline && entity.isClosed() && !vertices.empty();
    if (closed) CloseRing(begin);
    items_.push_back({entity, points_.size() - begin, closed});
}

void KmlLayer::CloseRing(std::size_t begin) {
    util::PlanePoint first = points_[begin];
    if (points_.back() == first) return;
    points_.push_back(first);
    heights_.push_back(heights_[begin]);
}

/// Marks positions that cannot be converted, because metres must not pass for degrees.
void KmlLayer::ConvertBatch() {
    const std::vector<util::PlanePoint> grid = points_;
    if (converter_.GridToLatLng(points_, heights_, coords::Rounding::None) == 0) return;  // the writer rounds
    for (std::size_t i = 0; i < points_.size(); ++i)
        if (points_[i] == grid[i] && !converter_.GridToLatLng(grid[i].x, grid[i].y, heights_[i], false))
            points_[i].x = std::numeric_limits<double>::quiet_NaN();
}

void KmlLayer::WriteBatch() {
    ConvertBatch();
    std::size_t begin = 0;
    for (const Item& item : items_) {
        std::string_view first = FirstValue(item.entity);
        writer_.BeginPlacemark(first.empty() ? layer_.layer.name : first);
        WriteDescription(item.entity);
        WriteGeometry(item, begin);
        writer_.EndPlacemark();
        begin += item.positions;
    }
    placemarks_ += items_.size();
    items_.clear();
    points_.clear();
    heights_.clear();
}

void KmlLayer::WriteDescription(EntityView entity) {
    std::string_view photo;
    drawing::ValueCursor values = entity.xproperties().values();
    for (std::size_t i = 0; !values.AtEnd(); ++i) {
        std::string_view value = values.Next();
        std::uint64_t replaced = writer_.AddValue(value);
        if (replaced > 0) CountReplaced(entity, i, replaced);
        if (photo.empty() && NamesPhoto(value)) photo = value;
    }
    if (photo.empty())
        writer_.EndDescription();
    else
        WritePhoto(photo);
}

void KmlLayer::CountReplaced(EntityView entity, std::size_t value, std::uint64_t characters) {
    run_.Losses().Count(config::LossReport::Kind::Replaced, layer_.layer.name,
                        entity.xproperties().name(value), characters);
}

void KmlLayer::WritePhoto(std::string_view value) {
    std::string name = PhotoName(value, settings_.folder), address = EncodedPath(name);
    if (!settings_.web) {
        writer_.AddImage(address);
        writer_.EndDescription();
        return;
    }
    writer_.AddImage(settings_.photoAddress + EncodedPath(ThumbnailName(name)));
    writer_.EndDescription(settings_.photoAddress + address);
}

void KmlLayer::WriteGeometry(const Item& item, std::size_t begin) {
    std::span<const util::PlanePoint> positions = std::span(points_).subspan(begin, item.positions);
    if (!std::ranges::all_of(positions, IsOnGlobe)) {
        ++unplaced_;
        return;
    }
    if (!positions.empty())
        writer_.AddGeometry(ShapeOf(positions.size(), item.closed), positions,
                            std::span(heights_).subspan(begin, item.positions));
}

}  // namespace vexlator::exporter
