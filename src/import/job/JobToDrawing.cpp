// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/job/JobToDrawing.h"

#include "formats/job/AttributeRecords.h"
#include "formats/job/RecordCoordinates.h"
#include "formats/job/VertexRecords.h"
#include "import/job/QualityMarkers.h"
#include "import/job/RecordAttributes.h"
#include "import/job/UsedPoints.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <optional>
#include <vector>

namespace vexlator::importer {

using Row = formats::JobTable::Row;

namespace {

/// An area is closed automatically if the distance of its first and last vertex is below 0.01 drawing units.
/// Coordinates are doubles: ends at exactly that distance in their texts can seem slightly nearer.
constexpr double closingDistance = 0.01 - 1e-8;

std::string_view CodeOfFeature(std::string_view id) {
    return id.substr(0, id.find('('));
}

/// A style means filled areas unless its field 1 is negative.
bool StyleFills(std::string_view style) {
    return util::GetCommaNumber(1, style) >= 0;
}

drawing::Point PositionOf(const formats::JobTable& table, formats::JobTable::Row row) {
    formats::JobPosition position = formats::GetRecordCoordinates(table, row);
    return {position.x, position.y, position.z};
}

}  // namespace

/// The state of one job file during its import.
class JobToDrawing::Job {
public:
    Job(JobToDrawing& importer, formats::JobTable& table, std::string_view jobPath)
        : drawing_(importer.drawing_),
          layers_(importer.layers_),
          closer_(importer.closer_),
          settings_(importer.settings_),
          table_(table),
          attributeRecords_(table),
          vertexRecords_(table),
          attributes_(importer.drawing_, table, jobPath) {
        if (settings_.importQA) markers_.emplace(drawing_);
    }

    void ImportRow(Row row);
    const JobCounts& Counts() const { return counts_; }

private:
    void ImportPointRecord(Row row);
    void ImportFeatureRecord(Row row);
    void CloseFeature(std::string_view id);
    void LeaveOut(Row row);
    void CloseAreaIfNeeded(drawing::Entity polyline);
    void AddMarker(Row row, std::string_view feature);

    drawing::Drawing& drawing_;
    FeatureLayers& layers_;
    FeatureCloser& closer_;
    const JobSettings& settings_;
    formats::JobTable& table_;
    formats::AttributeRecords attributeRecords_;
    formats::VertexRecords vertexRecords_;
    RecordAttributes attributes_;
    UsedPoints usedPoints_;
    std::optional<QualityMarkers> markers_;
    std::vector<Row> vertices_;
    JobCounts counts_;
};

void JobToDrawing::Job::ImportRow(Row row) {
    if (formats::IsPositionRecord(table_, row)) {
        if (table_.Field(row, 1) == "P")
            ImportPointRecord(row);
        else
            ImportFeatureRecord(row);
    } else if (table_.IsPosition(row)) {
        LeaveOut(row);
    } else if (table_.Kind(row) == formats::RecordKind::Command && table_.Field(row, 2) == "Close") {
        CloseFeature(table_.Field(row, 1));
    }
}

void JobToDrawing::Job::ImportPointRecord(Row row) {
    std::string_view number = table_.Field(row, 2);
    usedPoints_.EraseEarlier(number, drawing_);
    const std::string& code = layers_.MapAliasCode(util::Trim(table_.Field(row, 3)));
    layers_.SelectFeatureLayer(code, FeatureLayers::Kind::Point);
    drawing::Entity insert = drawing_.addInsert(PositionOf(table_, row), layers_.SymbolBlock(), 1, 1, 0);
    attributes_.AttachRecordAttributes(insert, layers_.Current(), number,
                                       attributeRecords_.OfPoint(row, number));
    usedPoints_.Add(number, insert);
    AddMarker(row, code);
    table_.MarkDone(row);
    ++counts_.entities;
    ++counts_.positions;
}

void JobToDrawing::Job::ImportFeatureRecord(Row row) {
    std::string_view id = util::Trim(table_.Field(row, 3));
    bool isArea = util::Trim(table_.Field(row, 1)) == "A";
    layers_.SelectFeatureLayer(CodeOfFeature(id), FeatureLayers::Kind::Line);
    vertexRecords_.TakeBelow(row, id, vertices_);
    vertices_.insert(vertices_.begin(), row);

    // First the whole feature, then its markers, because the drawing holds every entity in one piece.
    drawing::Entity polyline = drawing_.addPolyline();
    for (Row vertex : vertices_) polyline.appendVertex(PositionOf(table_, vertex));
    polyline.setLabel(id);
    closer_.Added(polyline, id);
    attributes_.AttachRecordAttributes(polyline, layers_.Current(), id, attributeRecords_.OfFeature(row, id));
    if (isArea) CloseAreaIfNeeded(polyline);
    for (Row vertex : vertices_) {
        AddMarker(vertex, id);
        table_.MarkDone(vertex);
    }
    ++counts_.entities;
    counts_.positions += vertices_.size();
}

void JobToDrawing::Job::AddMarker(Row row, std::string_view feature) {
    if (!markers_) return;
    std::string_view quality = formats::GetRecordQuality(table_, row);
    if (!quality.empty())
        markers_->AddQualityMarker(PositionOf(table_, row), quality, table_.Field(row, 2), feature);
}

void JobToDrawing::Job::CloseAreaIfNeeded(drawing::Entity polyline) {
    std::size_t count = polyline.vertexCount();
    if (count < 2) return;
    if (settings_.forceClose ||
        drawing::distance(polyline.vertex(0), polyline.vertex(count - 1)) < closingDistance)
        polyline.setClosed(true);
    polyline.setFilled(StyleFills(layers_.Current().style));
}

void JobToDrawing::Job::CloseFeature(std::string_view id) {
    layers_.SelectFeatureLayer(CodeOfFeature(id), FeatureLayers::Kind::Line);
    // Unlike an area, a feature closed by a command needs a style to be filled.
    const std::string& style = layers_.Current().style;
    if (closer_.CloseAll(std::string(id), !style.empty() && StyleFills(style))) ++counts_.closings;
}

void JobToDrawing::Job::LeaveOut(Row row) {
    if (counts_.leftOut++ == 0) counts_.firstLeftOut = row;
}

JobToDrawing::JobToDrawing(config::Run& run, drawing::Drawing& drawing, JobSettings settings)
    : drawing_(drawing), settings_(settings), layers_(run, drawing), closer_(drawing) {}

JobCounts JobToDrawing::ImportRecords(formats::JobTable& table, std::string_view jobPath,
                                      ui::FormView& view) {
    Job job(*this, table, jobPath);
    for (Row row = 0; row < table.RowCount(); ++row) {
        job.ImportRow(row);
        view.Progress(row + 1, table.RowCount());
    }
    RemoveReferenceLayers();
    return job.Counts();
}

void JobToDrawing::RemoveReferenceLayers() {
    for (std::string_view name : {"REFLINE", "REFPOINT"}) {
        if (drawing_.activeLayerName() == name) layers_.Forget();
        drawing_.eraseLayer(name);
    }
}

}  // namespace vexlator::importer
