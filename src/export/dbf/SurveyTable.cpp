// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/dbf/SurveyTable.h"

#include "drawing/AttributeTemplate.h"
#include "drawing/FieldMapping.h"
#include "export/LayerEncoding.h"
#include "export/dbf/DbfTables.h"
#include "export/dbf/PlaceColumns.h"
#include "platform/AsciiCase.h"
#include "util/Paths.h"

#include <algorithm>
#include <unordered_map>

namespace vexlator::exporter {

using formats::DbfColumn;
using formats::DbfWriter;

namespace {

constexpr int codeWidth = 14;
constexpr std::size_t ownColumns = 4;  ///< before those of attributes

/// Columns of the layers' templates. A name that several have is as wide as the widest, and a text if one is.
std::vector<DbfColumn> AttributeColumns(config::Run& run, const std::vector<ExportLayer>& layers) {
    std::vector<DbfColumn> columns;
    std::unordered_map<std::string, std::size_t> known;
    for (const ExportLayer& layer : layers)
        for (const drawing::AtpField& field : drawing::ReadAtpFields(TemplateFor(run, layer))) {
            DbfColumn column = DbfColumnFor(run.Settings(), field);
            column.name = field.name;
            auto [at, isNew] = known.try_emplace(platform::LowerAscii(field.name), columns.size());
            if (isNew) {
                columns.push_back(column);
                continue;
            }
            DbfColumn& first = columns[at->second];
            if (column.type == 'C') first.type = 'C';
            first.width = std::max(first.width, column.width);
            first.decimals = first.type == 'C' ? 0 : std::max(first.decimals, column.decimals);
        }
    return columns;
}

std::vector<DbfColumn> AllColumns(const std::vector<DbfColumn>& attributes) {
    std::vector<DbfColumn> columns{{"FEATURE", 'C', codeWidth, 0}};
    std::vector<DbfColumn> place = PlaceColumns(true);
    columns.insert(columns.end(), place.begin(), place.end());
    columns.insert(columns.end(), attributes.begin(), attributes.end());
    return columns;
}

DbfWriter MakeSurveyWriter(const std::vector<ExportLayer>& layers, const std::vector<DbfColumn>& columns,
                           const std::string& basePath, platform::OutputSet& files) {
    std::vector<std::string> names;
    for (const DbfColumn& column : columns) names.push_back(column.name);
    formats::TextEncoding encoding = formats::TextEncoding::Ascii;
    std::uint64_t records = 0;
    for (const ExportLayer& layer : layers) {
        names.push_back(layer.layer.name);
        encoding = std::max(encoding, EncodingFor(layer, names));
        records += layer.pointsAndLines;
    }
    files.Add(basePath + ".CPG").Write(encoding == DbfWriter::Encoding::Utf8 ? "UTF-8" : "1252");
    return {files.Add(basePath + ".DBF"), columns, encoding, records};
}

std::vector<std::string> NamesOf(const std::vector<DbfColumn>& columns) {
    std::vector<std::string> names;
    for (const DbfColumn& column : columns) names.push_back(column.name);
    return names;
}

}  // namespace

SurveyTable::SurveyTable(config::Run& run, const std::vector<ExportLayer>& layers, bool suppressNA,
                         const std::string& basePath, platform::OutputSet& files)
    : run_(run),
      layers_(layers),
      suppressNA_(suppressNA),
      name_(util::FileNameOf(basePath)),
      columns_(AttributeColumns(run, layers)),
      writer_(MakeSurveyWriter(layers, AllColumns(columns_), basePath, files)) {
    for (const ExportLayer& layer : layers)
        parts_.push_back({ColumnMatch::ByName(run, layer.layer.name, NamesForAttributes(NamesOf(columns_)))});
}

void SurveyTable::Write(std::size_t layer, const LayerPart& part) {
    for (drawing::EntityView entity : part)
        if (HasRecord(entity))
            Add(layers_[layer], parts_[layer], entity);
        else
            parts_[layer].leftOut.Add(entity.kindCode());
}

void SurveyTable::Add(const ExportLayer& layer, Part& part, drawing::EntityView entity) {
    writer_.BeginRecord();
    writer_.SetField(0, layer.layer.name);
    ReadPlace(entity, place_);
    for (std::size_t i = 0; i < place_.size(); ++i) writer_.SetField(1 + i, place_[i]);
    std::span<const std::string_view> row = part.match.Row(entity);
    for (std::size_t i = 0; i < row.size(); ++i)
        if (!suppressNA_ || row[i] != "NA")
            writer_.SetField(ownColumns + i, drawing::ShortenValue(run_.Settings(), row[i]));
    writer_.EndRecord();
    ++part.records;
}

void SurveyTable::Finish() {
    writer_.Finish();
    for (std::size_t layer = 0; layer < parts_.size(); ++layer) {
        parts_[layer].leftOut.Report(run_, layers_[layer].layer.name);
        parts_[layer].match.Report();
    }
    using enum config::LossReport::Kind;
    for (std::size_t i = 0; i < writer_.Columns().size(); ++i) {
        const std::string& column = writer_.Columns()[i].name;
        run_.Losses().Count(Cut, name_, column, writer_.ValuesCut()[i]);
        run_.Losses().Count(NotNumber, name_, column, writer_.NotNumbers()[i]);
        run_.Losses().Count(Replaced, name_, column, writer_.Replaced()[i]);
    }
}

}  // namespace vexlator::exporter
