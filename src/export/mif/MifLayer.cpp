// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/mif/MifLayer.h"

#include "export/LayerEncoding.h"
#include "util/Numbers.h"
#include "util/Paths.h"

namespace vexlator::exporter {

using drawing::Entity;
using drawing::Kind;
using formats::MifColumn;

namespace {

constexpr std::size_t fewestVertices = 2;  ///< that readers take for a line or an area

std::vector<MifColumn> ColumnsOf(config::Session& session, const ExportLayer& layer, bool strict) {
    std::string path = drawing::ConvertXotToAtx(TemplateFor(session, layer));
    std::vector<MifColumn> columns;
    for (const drawing::AtpField& field : drawing::ReadAtpFields(path))
        columns.push_back({field.name, MifColumnType(field, strict)});
    if (columns.empty()) columns.push_back({"ID", "Char(10)"});
    return columns;
}

formats::MifWriter MakeWriter(const MifSettings& settings, const ExportLayer& layer,
                              const std::vector<MifColumn>& columns, const std::string& basePath,
                              platform::OutputSet& files) {
    std::vector<std::string> names{settings.coordSys};
    for (const MifColumn& column : columns) names.push_back(column.name);
    return {files.Add(basePath + ".MIF"), files.Add(basePath + ".MID"),
            formats::MifHeader{settings.coordSys, columns, EncodingFor(layer, names)}};
}

std::string Filled(const std::string& text, bool strict, std::string_view filling) {
    return std::string(strict && text.empty() ? filling : text);
}

}  // namespace

std::string MifColumnType(const drawing::AtpField& field, bool strict) {
    constexpr std::string_view widestNumber = "15", widestText = "254";
    auto decimal = [&] {
        return "Decimal(" + Filled(field.width, strict, widestNumber) + "," +
               Filled(field.decimals, strict, "0") + ")";
    };
    switch (field.type) {
        case 'F':
            return "Float";
        case 'D':
            return field.width.empty() ? "Date" : decimal();
        case 'N':
            return field.Decimals() == 0 ? "Integer" : decimal();
        default:
            return "Char(" + Filled(field.width, strict, widestText) + ")";
    }
}

MifLayer::MifLayer(config::Session& session, const MifSettings& settings, const ExportLayer& layer,
                   std::string_view targetPath, platform::OutputSet& files)
    : session_(session),
      settings_(settings),
      layer_(layer),
      columns_(ColumnsOf(session, layer, settings.strict)),
      writer_(MakeWriter(settings, layer, columns_, util::JoinPath(targetPath, layer.fileName), files)) {}

void MifLayer::Write(const LayerPart& part) {
    for (Entity entity : part.Entities()) {
        if (!AddObject(entity)) continue;
        AddRow(entity);
        ++objects_;
        if (!IsComplete(entity)) ++incomplete_;
    }
}

std::uint64_t MifLayer::Finish() {
    Report();
    return objects_;
}

bool MifLayer::IsComplete(Entity entity) const {
    // An empty row is a row of one value.
    bool hasRow = columns_.size() == 1 || entity.xproperties().count() >= columns_.size();
    return hasRow && (entity.kindCode() != Kind::Polyline || entity.vertexCount() >= fewestVertices);
}

bool MifLayer::AddObject(Entity entity) {
    switch (entity.kindCode()) {
        case Kind::Point:
        case Kind::Insert:
        case Kind::Circle: {
            drawing::Point at = entity.position();
            writer_.AddPoint({at.x, at.y});
            return true;
        }
        case Kind::Polyline:
            AddPolyline(entity);
            return true;
        default:
            return false;
    }
}

void MifLayer::AddPolyline(Entity entity) {
    std::span<const util::PlanePoint> vertices = entity.planVertices();
    if (vertices.size() >= fewestVertices || !settings_.strict)
        entity.isClosed() ? writer_.AddRegion(vertices) : writer_.AddPolyline(vertices);
    else if (vertices.empty())
        writer_.AddNone();
    else
        writer_.AddPoint(vertices[0]);
}

void MifLayer::AddRow(Entity entity) {
    drawing::ValueCursor values = entity.xproperties().values();
    std::size_t count = values.Left();
    while (!values.AtEnd()) writer_.AddValue(values.Next());
    if (settings_.strict)
        for (; count < columns_.size(); ++count) writer_.AddValue("");
    writer_.EndRow();
}

void MifLayer::Report() {
    if (incomplete_ == 0 || settings_.strict) return;
    session_.Ui().Report(layer_.layer.name + ": of " + util::GroupedCount(objects_) + " objects " +
                         util::GroupedCount(incomplete_) +
                         " have fewer values than there are columns, or fewer than two vertices; programs "
                         "that stop there need [MID] Strict=1");
}

}  // namespace vexlator::exporter
