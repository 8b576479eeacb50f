// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/xls/SheetRows.h"

#include "drawing/AttributeTemplate.h"
#include "export/FeaturePlace.h"
#include "export/HeaderNames.h"
#include "export/photos/PhotoNames.h"
#include "export/photos/Photos.h"
#include "platform/AsciiCase.h"
#include "util/Counted.h"
#include "util/WholeNumber.h"

#include <algorithm>
#include <cmath>

namespace vexlator::exporter {

namespace {

constexpr int placeWidth = 13;

std::vector<formats::XlsxColumn> SheetColumns(const std::vector<std::string>& names,
                                              const std::vector<int>& widths) {
    std::vector<formats::XlsxColumn> columns;
    for (std::size_t i = 0; i < names.size(); ++i) columns.push_back({names[i], widths[i]});
    for (const char* name : {"KIND", "EASTING", "NORTHING", "LEVEL"}) columns.push_back({name, placeWidth});
    return columns;
}

/// A spreadsheet shows fifteen digits. A longer number, or one with a leading zero or sign, is a code.
bool ReadsBack(std::string_view number) {
    constexpr int mostDigits = 15;
    std::string_view digits = number.substr(number.starts_with('-') ? 1 : 0);
    bool leadingZero = digits.size() > 1 && digits[0] == '0' && digits[1] != '.';
    return !leadingZero && !number.starts_with('+') &&
           std::ranges::count_if(digits, [](char c) { return c >= '0' && c <= '9'; }) <= mostDigits;
}

}  // namespace

std::vector<SheetRows::Column> SheetRows::ColumnsOf(config::Run& run, const ExportLayer& layer,
                                                    const drawing::Drawing& drawing) {
    std::vector<drawing::AtpField> fields = drawing::ReadAtpFields(TemplateFor(run, layer));
    std::vector<Column> columns;
    for (std::string& name : HeaderNames(layer, drawing, true)) {
        auto field = std::ranges::find_if(fields, [&](const drawing::AtpField& candidate) {
            return platform::SameNoCase(candidate.name, name);
        });
        Column column{std::move(name)};
        if (field != fields.end()) {
            column.isNumber = field->type == 'N' || field->type == 'F';
            column.width = field->Width();
        }
        columns.push_back(std::move(column));
    }
    return columns;
}

SheetRows::SheetRows(config::Run& run, const ExportLayer& layer, const drawing::Drawing& drawing,
                     std::string_view targetPath, formats::XlsxRows& writer)
    : run_(run),
      layer_(layer),
      folder_(targetPath),
      writer_(writer),
      columns_(ColumnsOf(run, layer, drawing)),
      match_(
          ColumnMatch::ByName(run, layer.layer.name, NamesForAttributes(HeaderNames(layer, drawing, true)))) {
    std::vector<std::string> names;
    std::vector<int> widths;
    for (const Column& column : columns_) {
        names.push_back(column.name);
        widths.push_back(column.width);
    }
    table_ = writer_.AddTable(layer.layer.name, SheetColumns(names, widths));
    notTaken_.resize(columns_.size());
}

void SheetRows::Write(const LayerPart& part) {
    if (!writer_.Takes(table_)) {
        leftOut_ += part.indexes.size();
        return;
    }
    for (drawing::EntityView entity : part) {
        writer_.BeginRow(table_);
        std::span<const std::string_view> row = match_.Row(entity);
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (!row[i].empty() && !writer_.Takes(table_, i)) ++notTaken_[i];
            AddCell(columns_[i], row[i]);
        }
        AddPlace(entity);
        ++rows_;
    }
}

void SheetRows::AddCell(const Column& column, std::string_view value) {
    if (column.isNumber) {
        std::optional<double> number = util::WholeNumberOf(value);
        if (number && ReadsBack(value)) return writer_.AddNumber(*number);
    }
    if (NamesPhoto(value)) return writer_.AddLink(PhotoName(value, folder_), value);
    std::uint64_t before = writer_.Cut();
    writer_.AddText(value);
    if (writer_.Cut() > before)
        run_.Losses().Count(config::LossReport::Kind::Cut, layer_.layer.name, column.name);
}

void SheetRows::AddPlace(drawing::EntityView entity) {
    writer_.AddText(entity.kind());
    if (entity.vertexCount() == 0) return;
    FeaturePlace place = PlaceOf(entity);
    for (double value : {place.at.x, place.at.y, place.height})
        if (std::isfinite(value))
            writer_.AddNumber(value);
        else
            writer_.AddText("");
}

std::uint64_t SheetRows::Finish() {
    match_.Report();
    if (leftOut_ > 0)
        run_.Ui().Report(layer_.layer.name + ": " + util::Counted(leftOut_, "feature") +
                         " left out, because the template has no sheet of that name");
    for (std::size_t i = 0; i < notTaken_.size(); ++i)
        run_.Losses().Count(config::LossReport::Kind::NoColumn, layer_.layer.name, columns_[i].name,
                            notTaken_[i]);
    run_.Losses().Count(config::LossReport::Kind::LeftOut, layer_.layer.name, "feature", leftOut_);
    return rows_;
}

}  // namespace vexlator::exporter
