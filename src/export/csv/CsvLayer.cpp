// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/csv/CsvLayer.h"

#include "util/Counted.h"
#include "util/Numbers.h"
#include "util/Text.h"

namespace vexlator::exporter {

using drawing::EntityView;
using drawing::Kind;
using formats::CsvCoordinates;
using util::PlanePoint;

namespace {

constexpr int degreeDecimals = 6;

bool IsPoint(EntityView entity) {
    return entity.kindCode() == Kind::Point || entity.kindCode() == Kind::Insert;
}

}  // namespace

CsvLayer::CsvLayer(config::Run& run, const CsvSettings& settings, coords::frmLatLng* converter,
                   const ExportLayer& layer, std::vector<std::string> columns, formats::CsvWriter& writer,
                   bool isFirst)
    : run_(run),
      settings_(settings),
      converter_(converter),
      layer_(layer),
      writer_(writer),
      columns_(std::move(columns)),
      match_(run, layer.layer.name, NamesForAttributes(columns_)),
      isFirst_(isFirst),
      losses_(columns_.size()) {}

void CsvLayer::Write(const LayerPart& part) {
    formats::CsvLosses before = writer_.Losses();
    if (settings_.header && !isBegun_) AddHeader();
    isBegun_ = true;
    AddRows(part);
    allLosses_ += writer_.Losses();
    allLosses_ -= before;
}

std::uint64_t CsvLayer::Finish() {
    Report();
    return rows_;
}

void CsvLayer::AddHeader() {
    if (!isFirst_) writer_.EndRow();
    writer_.AddText("Geometry");
    writer_.AddText("Feature");
    if (settings_.coords) writer_.AddText("Coords");
    for (const std::string& name : columns_) writer_.AddText(name);
    if (!settings_.multiXYZ)
        writer_.AddText("");
    else if (settings_.latLng)
        for (std::string_view name : {"Latitude", "Longitude", "Level"}) writer_.AddText(name);
    else
        for (std::string_view name : {"X", "Y", "Z"}) writer_.AddText(name);
    writer_.EndRow();
}

void CsvLayer::AddRows(const LayerPart& part) {
    if (converter_) Convert(part);
    for (EntityView entity : part) {
        switch (entity.kindCode()) {
            case Kind::Point:
            case Kind::Insert:
                AddPoint(entity);
                break;
            case Kind::Polyline:
                AddPolyline(entity);
                break;
            default:
                leftOut_.Add(entity.kindCode());
                continue;
        }
        ++rows_;
    }
}

void CsvLayer::Convert(const LayerPart& part) {
    std::vector<PlanePoint> points;
    std::vector<double> heights;
    for (EntityView entity : part) {
        if (!IsPoint(entity)) continue;
        drawing::Point at = entity.position();
        points.push_back({at.x, at.y});
        heights.push_back(at.z);
    }
    std::vector<PlanePoint> grid = points;
    std::size_t failed = converter_->GridToLatLng(points, heights);
    unconverted_ += failed;
    converted_.clear();
    nextConverted_ = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        // Values that could not be converted are unchanged, and so are values that were already in degrees.
        bool inDegrees = failed == 0 || points[i] != grid[i] ||
                         converter_->GridToLatLng(grid[i].x, grid[i].y, heights[i], false);
        PlanePoint point = inDegrees ? PlanePoint{points[i].y, points[i].x} : grid[i];
        converted_.push_back({point, heights[i], inDegrees});
    }
}

void CsvLayer::AddPoint(EntityView entity) {
    drawing::Point at = entity.position();
    Converted written{{at.x, at.y}, at.z, false};
    if (converter_) written = converted_[nextConverted_++];
    CsvCoordinates coordinates{.points = {&written.point, 1}, .heights = {&written.height, 1}};
    coordinates.decimals = written.inDegrees ? degreeDecimals : settings_.decimals;
    AddRow("Point", coordinates, entity);
}

void CsvLayer::AddPolyline(EntityView entity) {
    CsvCoordinates coordinates{.points = entity.planVertices(),
                               .heights = entity.heights(),
                               .decimals = settings_.decimals,
                               .list = true};
    AddRow("Polyline", coordinates, entity);
}

void CsvLayer::AddRow(std::string_view geometry, const CsvCoordinates& coordinates, EntityView entity) {
    writer_.AddText(geometry);
    writer_.AddText(layer_.layer.name);
    if (settings_.coords) writer_.AddCoordinates(coordinates, false);
    AddValues(entity);
    if (settings_.multiXYZ) {
        writer_.AddCoordinates(coordinates, true);
        writer_.AddText("");
    }
    writer_.EndRow();
}

void CsvLayer::AddValues(EntityView entity) {
    std::span<const std::string_view> row = match_.Row(entity);
    if (row.empty()) return writer_.AddText("");
    formats::CsvLosses before = writer_.Losses();
    for (std::size_t column = 0; column < row.size(); ++column) {
        AddValue(row[column]);
        if (writer_.Losses() == before) continue;
        losses_[column].replaced += writer_.Losses().replaced - before.replaced;
        losses_[column].broken += writer_.Losses().broken - before.broken;
        before = writer_.Losses();
    }
}

void CsvLayer::AddValue(std::string_view value) {
    if (settings_.suppressNA && value == "NA") value = "";
    if (settings_.hyperlinks && util::InStrNoCase(value, ".JPG") > 0)
        writer_.AddHyperlink(value);
    else
        writer_.AddText(value);
}

void CsvLayer::CountLosses(std::string_view column, const formats::CsvLosses& losses) {
    using enum config::LossReport::Kind;
    run_.Losses().Count(Broken, layer_.layer.name, column, losses.broken);
    run_.Losses().Count(Replaced, layer_.layer.name, column, losses.replaced);
}

void CsvLayer::Report() {
    leftOut_.Report(run_, layer_.layer.name);
    match_.Report();
    formats::CsvLosses ofNames = allLosses_;  // which are in the header and in every row
    for (std::size_t column = 0; column < losses_.size(); ++column) {
        CountLosses(columns_[column], losses_[column]);
        ofNames -= losses_[column];
    }
    CountLosses("", ofNames);
    if (unconverted_ > 0)
        run_.Ui().Report(layer_.layer.name + ": " + util::Counted(unconverted_, "point") +
                         " outside the coordinate conversion, left in grid coordinates");
}

}  // namespace vexlator::exporter
