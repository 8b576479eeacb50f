// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/table/LayerTable.h"

#include "drawing/FieldMapping.h"
#include "export/LayerEncoding.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::exporter {

using formats::DbfColumn;
using formats::DbfWriter;

namespace {

constexpr int widestText = 254, longTextWidth = 99, dateTextWidth = 10;
constexpr int widestNumber = 19, numberDecimals = 11;  ///< enough for every number that people type

std::vector<drawing::AtpField> ColumnFieldsOf(config::Run& run, const ExportLayer& layer) {
    std::vector<drawing::AtpField> fields =
        drawing::ReadAtpFields(TemplateFor(run, layer), drawing::NullFields::Keep);
    std::erase_if(fields, [&](const drawing::AtpField& field) {
        return drawing::MappedFieldName(run.Settings(), field) == "NULL";
    });
    return fields;
}

/// The column's name as in the template, without characters that table names cannot have.
std::string NameFor(const config::SharedSettings& settings, const drawing::AtpField& field) {
    return util::ReplaceAll(drawing::MappedFieldName(settings, field), ".", "_");
}

/// Writes the .CPG as well: both must name the same encoding.
DbfWriter MakeWriter(const config::Run& run, const ExportLayer& layer,
                     const std::vector<drawing::AtpField>& fields, const std::vector<DbfColumn>& further,
                     const std::string& basePath, platform::OutputSet& files) {
    std::vector<DbfColumn> columns;
    std::vector<std::string> names;
    for (const drawing::AtpField& field : fields) {
        columns.push_back(DbfColumnFor(run.Settings(), field));
        columns.back().name = ColumnName(columns.back().name, columns.size() - 1);
        names.push_back(columns.back().name);
    }
    columns.insert(columns.end(), further.begin(), further.end());
    DbfWriter::Encoding encoding = EncodingFor(layer, names);
    files.Add(basePath + ".CPG").Write(encoding == DbfWriter::Encoding::Utf8 ? "UTF-8" : "1252");
    return {files.Add(basePath + ".DBF"), std::move(columns), encoding, layer.pointsAndLines};
}

}  // namespace

DbfColumn DbfColumnFor(const config::SharedSettings& settings, const drawing::AtpField& field) {
    DbfColumn column{NameFor(settings, field), 'C', field.Width(), 0};
    bool hasWidth = column.width > 0;
    bool isNumber = field.type == 'N' || field.type == 'F' || (field.type == 'D' && hasWidth);
    if (isNumber) {
        column.type = 'N';
        column.decimals = hasWidth || !field.decimals.empty() ? field.Decimals() : numberDecimals;
        if (!hasWidth) column.width = widestNumber;
    } else if (field.type == 'D') {
        column.width = dateTextWidth;
    } else if (field.type == 'X') {
        column.width = longTextWidth;
    } else if (!hasWidth) {
        column.width = widestText;
    }
    return column;
}

LayerTable::LayerTable(config::Run& run, const ExportLayer& layer, bool suppressNA,
                       const std::string& basePath, platform::OutputSet& files,
                       const std::vector<DbfColumn>& further)
    : run_(run),
      layer_(layer),
      suppressNA_(suppressNA),
      fields_(ColumnFieldsOf(run, layer)),
      writer_(MakeWriter(run, layer, fields_, further, basePath, files)),
      match_(run, layer.layer.name, NamesForAttributes(fields_, writer_.Columns())) {}

std::string_view LayerTable::Shown(std::string_view value) const {
    if (suppressNA_ && value == "NA") return "";
    return drawing::ShortenValue(run_.Settings(), value);
}

void LayerTable::Add(drawing::EntityView entity, std::span<const std::string> further) {
    writer_.BeginRecord();
    bool empty = true;
    std::span<const std::string_view> row = match_.Row(entity);
    for (std::size_t column = 0; column < row.size(); ++column) {
        std::string_view value = Shown(row[column]);
        empty = empty && value.empty();
        if (column < fields_.size()) writer_.SetField(column, value);
    }
    for (std::size_t i = 0; i < further.size(); ++i) writer_.SetField(fields_.size() + i, further[i]);
    if (empty && entity.xproperties().count() <= 1) writer_.SetField(0, entity.handle());
    writer_.EndRecord();
}

void LayerTable::Finish() {
    writer_.Finish();
    ReportColumns();
    match_.Report();
    using enum config::LossReport::Kind;
    for (std::size_t i = 0; i < writer_.Columns().size(); ++i) {
        const std::string& name = writer_.Columns()[i].name;
        run_.Losses().Count(Cut, layer_.layer.name, name, writer_.ValuesCut()[i]);
        run_.Losses().Count(NotNumber, layer_.layer.name, name, writer_.NotNumbers()[i]);
        run_.Losses().Count(Replaced, layer_.layer.name, name, writer_.Replaced()[i]);
    }
}

void LayerTable::ReportColumns() const {
    util::ShortList renamed = OtherNames();
    for (std::size_t i = 0; i < std::min(fields_.size(), writer_.Columns().size()); ++i) {
        std::string_view wanted = drawing::MappedFieldName(run_.Settings(), fields_[i]);
        const std::string& name = writer_.Columns()[i].name;
        if (wanted != name) renamed.Add(ShownName(wanted) + " -> " + name);
    }
    if (!renamed.Empty())
        run_.Ui().Report(util::ShortList::Shortened(layer_.layer.name) +
                         ": names of columns changed: " + renamed.Text());
}

}  // namespace vexlator::exporter
