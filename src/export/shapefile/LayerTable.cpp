// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/shapefile/LayerTable.h"

#include "drawing/FieldMapping.h"
#include "export/LayerEncoding.h"
#include "util/Text.h"

namespace vexlator::exporter {

using formats::DbfColumn;
using formats::DbfWriter;

namespace {

constexpr int longTextWidth = 99;
constexpr int dateTextWidth = 10;

std::vector<DbfColumn> ColumnsOf(config::Session& session, const ExportLayer& layer) {
    std::vector<DbfColumn> columns;
    std::string path = TemplateFor(session, layer);
    for (const drawing::AtpField& field : drawing::ReadAtpFields(path, drawing::NullFields::Keep))
        if (drawing::MappedFieldName(session.Settings(), field) != "NULL")
            columns.push_back(DbfColumnFor(session.Settings(), field));
    return columns;
}

/// Makes the .CPG as well: both must tell the same.
DbfWriter MakeWriter(config::Session& session, const ExportLayer& layer, const std::string& basePath,
                     platform::OutputSet& files) {
    std::vector<DbfColumn> columns = ColumnsOf(session, layer);
    std::vector<std::string> names;
    for (const DbfColumn& column : columns) names.push_back(column.name);
    DbfWriter::Encoding encoding = EncodingFor(layer, names);
    files.Add(basePath + ".CPG").Write(encoding == DbfWriter::Encoding::Utf8 ? "UTF-8" : "1252");
    return {files.Add(basePath + ".DBF"), std::move(columns), encoding, layer.pointsAndLines};
}

}  // namespace

DbfColumn DbfColumnFor(const config::SharedSettings& settings, const drawing::AtpField& field) {
    DbfColumn column;
    column.name = util::ReplaceAll(drawing::MappedFieldName(settings, field), ".", "_");
    column.width = field.Width();
    switch (field.type) {
        case 'N':
        case 'F':
            break;
        case 'D':
            if (!field.width.empty()) break;
            column.width = dateTextWidth;
            return column;
        case 'X':
            column.width = longTextWidth;
            return column;
        default:
            return column;
    }
    column.type = 'N';
    column.decimals = field.Decimals();
    return column;
}

LayerTable::LayerTable(config::Session& session, const ExportLayer& layer, bool suppressNA,
                       const std::string& basePath, platform::OutputSet& files)
    : session_(session),
      layer_(layer),
      suppressNA_(suppressNA),
      writer_(MakeWriter(session, layer, basePath, files)) {}

std::string_view LayerTable::Shown(std::string_view value) const {
    if (suppressNA_ && value == "NA") return "";
    return drawing::ShortenValue(session_.Settings(), value);
}

void LayerTable::CountLost(std::string_view field, std::uint64_t values) {
    session_.Losses().Count(config::LossReport::Kind::Cut, layer_.layer.name, field, values);
}

void LayerTable::Add(drawing::Entity entity) {
    writer_.BeginRecord();
    drawing::ValueCursor values = entity.xproperties().values();
    bool single = values.Left() <= 1;
    bool empty = true;
    const std::size_t columns = writer_.Columns().size();
    for (std::size_t column = 0; !values.AtEnd(); ++column) {
        std::string_view value = Shown(values.Next());
        empty = empty && value.empty();
        if (column < columns)
            writer_.SetField(column, value);
        else if (!value.empty())
            CountLost(entity.xproperties().name(column), 1);
    }
    if (single && empty) writer_.SetField(0, entity.handle());
    writer_.EndRecord();
}

void LayerTable::Finish() {
    writer_.Finish();
    for (std::size_t i = 0; i < writer_.Columns().size(); ++i)
        if (writer_.ValuesCut()[i] > 0) CountLost(writer_.Columns()[i].name, writer_.ValuesCut()[i]);
}

}  // namespace vexlator::exporter
