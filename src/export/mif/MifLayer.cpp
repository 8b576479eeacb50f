// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/mif/MifLayer.h"

#include "export/LayerEncoding.h"
#include "platform/AsciiCase.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::exporter {

using drawing::EntityView;
using drawing::Kind;
using formats::MifColumn;

namespace {

constexpr std::size_t fewestVertices = 2;  ///< number of vertices that readers need for a line or an area

std::vector<drawing::AtpField> FieldsOf(config::Run& run, const ExportLayer& layer) {
    std::vector<drawing::AtpField> fields =
        drawing::ReadAtpFields(drawing::ConvertXotToAtx(TemplateFor(run, layer)));
    if (fields.empty()) fields.push_back({"ID", "", 'C', "10", ""});
    return fields;
}

std::vector<MifColumn> ColumnsOf(const std::vector<drawing::AtpField>& fields) {
    std::vector<MifColumn> columns;
    auto isFieldName = [&](const std::string& name) {
        return std::ranges::any_of(
            fields, [&](const auto& field) { return platform::SameNoCase(util::Trim(field.name), name); });
    };
    auto isTaken = [&](const std::string& name) {
        return std::ranges::any_of(
            columns, [&](const auto& column) { return platform::SameNoCase(column.name, name); });
    };
    for (const drawing::AtpField& field : fields) {
        bool isNameless = util::Trim(field.name).empty();
        std::string name = util::ReplaceAll(ColumnName(field.name, columns.size()), " ", "_");
        while (isTaken(name) || (isNameless && isFieldName(name))) name += '_';
        columns.push_back({name, MifColumnType(field)});
    }
    return columns;
}

formats::MifWriter MakeWriter(const MifSettings& settings, const ExportLayer& layer,
                              const std::vector<MifColumn>& columns, const std::string& basePath,
                              platform::OutputSet& files) {
    std::vector<std::string> names{settings.coordSys};
    for (const MifColumn& column : columns) names.push_back(column.name);
    formats::MifHeader header;
    header.coordSys = settings.coordSys;
    header.columns = columns;
    return {files.Add(basePath + ".MIF"), files.Add(basePath + ".MID"), header, EncodingFor(layer, names)};
}

}  // namespace

std::string MifColumnType(const drawing::AtpField& field) {
    constexpr std::string_view widestNumber = "15", widestText = "254";
    bool hasWidth = field.Width() > 0;
    auto width = [&](std::string_view widest) { return hasWidth ? field.width : std::string(widest); };
    auto decimal = [&] {
        std::string decimals = field.decimals.empty() ? "0" : field.decimals;
        return "Decimal(" + width(widestNumber) + "," + decimals + ")";
    };
    switch (field.type) {
        case 'F':
            return "Float";
        case 'D':
            return hasWidth ? decimal() : "Date";
        case 'N':
            if (!hasWidth && field.decimals.empty()) return "Float";
            return field.Decimals() == 0 ? "Integer" : decimal();
        default:
            return "Char(" + width(widestText) + ")";
    }
}

MifLayer::MifLayer(config::Run& run, const MifSettings& settings, const ExportLayer& layer,
                   std::string_view targetPath, platform::OutputSet& files)
    : run_(run),
      settings_(settings),
      layer_(layer),
      fields_(FieldsOf(run, layer)),
      columns_(ColumnsOf(fields_)),
      writer_(MakeWriter(settings, layer, columns_, util::JoinPath(targetPath, layer.fileName), files)),
      match_(run, layer.layer.name, NamesForAttributes(fields_, columns_)) {}

void MifLayer::Write(const LayerPart& part) {
    for (EntityView entity : part) {
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

bool MifLayer::IsComplete(EntityView entity) const {
    // An empty row is a row of one value.
    bool hasRow =
        columns_.size() == 1 || match_.IsByName() || entity.xproperties().count() >= columns_.size();
    return hasRow && (entity.kindCode() != Kind::Polyline || entity.vertexCount() >= fewestVertices);
}

bool MifLayer::AddObject(EntityView entity) {
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
            leftOut_.Add(entity.kindCode());
            return false;
    }
}

void MifLayer::AddPolyline(EntityView entity) {
    std::span<const util::PlanePoint> vertices = entity.planVertices();
    if (vertices.size() >= fewestVertices || !settings_.strict)
        entity.isClosed() ? writer_.AddRegion(vertices) : writer_.AddPolyline(vertices);
    else if (vertices.empty())
        writer_.AddNone();
    else
        writer_.AddPoint(vertices[0]);
}

void MifLayer::AddRow(EntityView entity) {
    std::span<const std::string_view> row = match_.Row(entity);
    std::uint64_t before = writer_.Replaced();
    for (std::string_view value : row) writer_.AddValue(value);
    if (settings_.strict)
        for (std::size_t count = row.size(); count < columns_.size(); ++count) writer_.AddValue("");
    writer_.EndRow();
    replaced_ += writer_.Replaced() - before;
}

void MifLayer::Report() {
    leftOut_.Report(run_, layer_.layer.name);
    match_.Report();
    run_.Losses().Count(config::LossReport::Kind::Replaced, layer_.layer.name, "", replaced_);
    if (incomplete_ == 0 || settings_.strict) return;
    run_.Ui().Report(layer_.layer.name + ": of " + util::GroupedCount(objects_) + " objects " +
                     util::GroupedCount(incomplete_) +
                     " have fewer values than columns, or fewer than two vertices; programs that stop at "
                     "these need [MID] Strict=1");
}

}  // namespace vexlator::exporter
