// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/csv/CsvLayer.h"

#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::exporter {

using drawing::Entity;
using drawing::Kind;
using formats::CsvCoordinates;
using util::PlanePoint;

namespace {

constexpr std::size_t batchEntities = 65536;
constexpr int degreeDecimals = 6;

bool IsPoint(Entity entity) {
    return entity.kindCode() == Kind::Point || entity.kindCode() == Kind::Insert;
}

/// The first entity that has most attributes.
Entity RichestOf(const ExportLayer& layer) {
    Entity richest = layer.set.item(0);
    for (std::uint32_t index : layer.set.indexes()) {
        Entity entity = layer.set.entity(index);
        if (entity.attributeSet() != richest.attributeSet() &&
            entity.xproperties().count() > richest.xproperties().count())
            richest = entity;
    }
    return richest;
}

}  // namespace

CsvLayer::CsvLayer(config::Session& session, const CsvSettings& settings, coords::frmLatLng* converter,
                   const ExportLayer& layer, formats::CsvWriter& writer)
    : session_(session),
      settings_(settings),
      converter_(converter),
      layer_(layer),
      writer_(writer),
      columns_(RichestOf(layer).xproperties()),
      replacedBefore_(writer.Replaced()),
      replaced_(columns_.count()) {}

std::uint64_t CsvLayer::Write(ui::FormView& view) {
    if (settings_.header) AddHeader();
    std::uint64_t rows = 0;
    std::span<const std::uint32_t> left = layer_.set.indexes();
    while (!left.empty()) {
        std::size_t size = std::min(left.size(), batchEntities);
        rows += AddRows(left.first(size));
        left = left.subspan(size);
        view.Progress(layer_.set.count() - left.size(), layer_.set.count());
    }
    Report();
    return rows;
}

void CsvLayer::AddHeader() {
    if (writer_.HasRows()) writer_.EndRow();
    writer_.AddText("Geometry");
    writer_.AddText("Feature");
    if (settings_.coords) writer_.AddText("Coords");
    for (std::size_t i = 0; i < columns_.count(); ++i) writer_.AddText(columns_.name(i));
    if (!settings_.multiXYZ)
        writer_.AddText("");
    else if (settings_.latLng)
        for (std::string_view name : {"Latitude", "Longitude", "Level"}) writer_.AddText(name);
    else
        for (std::string_view name : {"X", "Y", "Z"}) writer_.AddText(name);
    writer_.EndRow();
}

std::uint64_t CsvLayer::AddRows(std::span<const std::uint32_t> entities) {
    if (converter_) Convert(entities);
    std::uint64_t rows = 0;
    for (std::uint32_t index : entities) {
        Entity entity = layer_.set.entity(index);
        if (IsPoint(entity))
            AddPoint(entity);
        else if (entity.kindCode() == Kind::Polyline)
            AddPolyline(entity);
        else
            continue;
        ++rows;
    }
    return rows;
}

void CsvLayer::Convert(std::span<const std::uint32_t> entities) {
    std::vector<PlanePoint> points;
    std::vector<double> heights;
    for (std::uint32_t index : entities) {
        Entity entity = layer_.set.entity(index);
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
    std::uint64_t inNames = writer_.Replaced() - replacedBefore_;
    for (std::size_t column = 0; column < replaced_.size(); ++column) {
        session_.Losses().Count(Replaced, layer_.layer.name, columns_.name(column), replaced_[column]);
        inNames -= replaced_[column];
    }
    session_.Losses().Count(Replaced, layer_.layer.name, "", inNames);
    if (unconverted_ > 0)
        session_.Ui().Report(layer_.layer.name + ": " + util::GroupedCount(unconverted_) +
                             " points lie outside the coordinate conversion and keep their grid coordinates");
}

}  // namespace vexlator::exporter
