// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/fmo/RowAttributes.h"

#include "platform/CodePages.h"
#include "util/Numbers.h"

#include <vector>

namespace vexlator::importer {

using database::ColumnType;
using database::Statement;

namespace {

/// A driver may write a double with 16 digits, of which the last is noise (664.6900000000001).
constexpr std::size_t noisySize = 16 + std::string_view(".").size();

std::string_view NumberText(std::string_view text, bool isFloat, std::string& buffer) {
    bool isNoisy = isFloat && text.size() >= noisySize;
    if (isNoisy || text.find_first_of("eE") != std::string_view::npos) {
        buffer = util::FormatShortest(util::NumberOf(text));
        return buffer;
    }
    if (text.find('.') == std::string_view::npos) return text;
    text = text.substr(0, text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.remove_suffix(1);
    return text;
}

std::string_view HexText(std::string_view bytes, std::string& buffer) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    buffer.clear();
    for (char byte : bytes) {
        auto value = static_cast<unsigned char>(byte);
        buffer += digits[value >> 4];
        buffer += digits[value & 15];
    }
    return buffer;
}

bool LooksNumeric(std::string_view text) {
    return text.find_first_not_of("+-.0123456789eE") == std::string_view::npos &&
           text.find_first_of("0123456789") != std::string_view::npos;
}

}  // namespace

std::string_view FieldValueText(const Statement& rows, std::size_t column, std::string& buffer) {
    if (rows.IsNull(column)) return "";
    std::string_view text = rows.Text(column);
    ColumnType type = rows.TypeOf(column);
    if (type == ColumnType::Bytes) return HexText(text, buffer);
    bool isFloat = type == ColumnType::Float;
    if ((isFloat || type == ColumnType::Number) && LooksNumeric(text))
        return NumberText(text, isFloat, buffer);
    if (platform::IsUtf8(text)) return text;
    buffer = platform::AsUtf8(text);
    return buffer;
}

RowAttributes::RowAttributes(drawing::Drawing& drawing, const Statement& rows,
                             std::span<const std::string> columns, std::size_t firstColumn)
    : rows_(rows), firstColumn_(firstColumn) {
    std::vector<std::string> names;
    for (const std::string& column : columns.subspan(firstColumn)) names.push_back(platform::AsUtf8(column));
    set_ = drawing.attributeSet(names);
}

void RowAttributes::AttachTo(drawing::Drawing& drawing) {
    drawing.beginValues(set_);
    for (std::size_t i = firstColumn_, end = rows_.ColumnCount(); i < end; ++i)
        drawing.appendValue(FieldValueText(rows_, i, text_));
}

}  // namespace vexlator::importer
