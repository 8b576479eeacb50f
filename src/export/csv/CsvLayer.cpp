// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/csv/CsvLayer.h"

#include "util/Numbers.h"
#include "util/Text.h"

namespace vexlator::exporter {

using drawing::Entity;
using drawing::Kind;
using formats::CsvCoordinates;
using util::PlanePoint;

namespace {

constexpr int degreeDecimals = 6;

bool IsPoint(Entity entity) {
    return entity.kindCode() == Kind::Point || entity.kindCode() == Kind::Insert;
}

}  // namespace

CsvLayer::CsvLayer(config::Session& session, const CsvSettings& settings, coords::frmLatLng* converter,
                   const ExportLayer& layer, formats::CsvWriter& writer, bool isFirst)
    : session_(session),
      settings_(settings),
      converter_(converter),
      layer_(layer),
      writer_(writer),
      columns_(layer.mostNames),
      isFirst_(isFirst),
      replaced_(columns_.size()) {}

void CsvLayer::Write(const LayerPart& part) {
    std::uint64_t before = writer_.Replaced();
    if (settings_.header && !isBegun_) AddHeader();
    isBegun_ = true;
    AddRows(part);
    allReplaced_ += writer_.Replaced() - before;
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
    for (Entity entity : part.Entities()) {
        if (IsPoint(entity))
            AddPoint(entity);
        else if (entity.kindCode() == Kind::Polyline)
            AddPolyline(entity);
        else
            continue;
        ++rows_;
    }
}

void CsvLayer::Convert(const LayerPart& part) {
    std::vector<PlanePoint> points;
    std::vector<double> heights;
    for (Entity entity : part.Entities()) {
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
        // What could not be converted is as it was.
        bool inDegrees = failed == 0 || points[i].x != grid[i].x || points[i].y != grid[i].y;
        PlanePoint point = inDegrees ? PlanePoint{points[i].y, points[i].x} : grid[i];
        converted_.push_back({point, heights[i], inDegrees});
    }
}

void CsvLayer::AddPoint(Entity entity) {
    drawing::Point at = entity.position();
    Converted written{{at.x, at.y}, at.z, false};
    if (converter_) written = converted_[nextConverted_++];
    CsvCoordinates coordinates{.points = {&written.point, 1}, .heights = {&written.height, 1}};
    coordinates.decimals = written.inDegrees ? degreeDecimals : settings_.decimals;
    AddRow("Point", coordinates, entity.xproperties());
}

void CsvLayer::AddPolyline(Entity entity) {
    CsvCoordinates coordinates{.points = entity.planVertices(),
                               .heights = entity.heights(),
                               .decimals = settings_.decimals,
                               .list = true};
    AddRow("Polyline", coordinates, entity.xproperties());
}

void CsvLayer::AddRow(std::string_view geometry, const CsvCoordinates& coordinates,
                      const drawing::XProperties& properties) {
    writer_.AddText(geometry);
    writer_.AddText(layer_.layer.name);
    if (settings_.coords) writer_.AddCoordinates(coordinates, false);
    AddValues(properties);
    if (settings_.multiXYZ) {
        writer_.AddCoordinates(coordinates, true);
        writer_.AddText("");
    }
    writer_.EndRow();
}

void CsvLayer::AddValues(const drawing::XProperties& properties) {
    drawing::ValueCursor values = properties.values();
    if (values.AtEnd()) return writer_.AddText("");
    std::uint64_t before = writer_.Replaced();
    for (std::size_t column = 0; !values.AtEnd(); ++column) {
        AddValue(values.Next());
        if (writer_.Replaced() == before) continue;
        replaced_[column] += writer_.Replaced() - before;
        before = writer_.Replaced();
    }
}

void CsvLayer::AddValue(std::string_view value) {
    if (settings_.suppressNA && value == "NA") value = "";
    if (settings_.hyperlinks && util::InStrNoCase(value, ".JPG") > 0)
        writer_.AddHyperlink(value);
    else
        writer_.AddText(value);
}

void CsvLayer::Report() {
    using enum config::LossReport::Kind;
    std::uint64_t inNames = allReplaced_;
    for (std::size_t column = 0; column < replaced_.size(); ++column) {
        session_.Losses().Count(Replaced, layer_.layer.name, columns_[column], replaced_[column]);
        inNames -= replaced_[column];
    }
    session_.Losses().Count(Replaced, layer_.layer.name, "", inNames);
    if (unconverted_ > 0)
        session_.Ui().Report(layer_.layer.name + ": " + util::GroupedCount(unconverted_) +
                             " points lie outside the coordinate conversion and keep their grid coordinates");
}

}  // namespace vexlator::exporter
