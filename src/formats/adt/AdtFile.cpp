// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/adt/AdtFile.h"

#include "platform/CodePages.h"
#include "platform/Errors.h"
#include "util/Text.h"
#include "util/WholeNumber.h"

#include <algorithm>
#include <optional>

namespace vexlator::formats {

namespace {

constexpr std::size_t mostFields = 1000;
enum Field : std::size_t { Code, East, North, Height, FirstValue };

/// The length of a quoted field at the start of a text, with both quotes; 0 if there is none that ends with
/// its field.
std::size_t QuotedLength(std::string_view text) {
    if (!text.starts_with('"')) return 0;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] != '"') continue;
        if (i + 1 < text.size() && text[i + 1] == '"')
            ++i;
        else
            return i + 1 == text.size() || text[i + 1] == ',' ? i + 1 : 0;
    }
    return 0;
}

}  // namespace

void AdtFile::Split(std::string_view row) {
    fields_.clear();
    unquoted_.clear();
    unquoted_.reserve(mostFields);  // the views below must stay valid
    for (bool more = true; more;) {
        if (fields_.size() == mostFields)
            throw platform::ReadError("", platform::ReadError::AtLine(Line()),
                                      "a row of more than 1,000 fields");
        std::size_t quoted = QuotedLength(row);
        std::size_t end = quoted > 0 ? quoted : std::min(row.find(','), row.size());
        std::string_view field = row.substr(0, end);
        if (quoted > 0)
            field = unquoted_.emplace_back(util::ReplaceAll(field.substr(1, end - 2), "\"\"", "\""));
        fields_.push_back(field);
        more = end < row.size();
        row.remove_prefix(std::min(end + 1, row.size()));
    }
}

bool AdtFile::Next(AdtRecord& record) {
    while (!rows_.AtEnd()) {
        std::string_view row = rows_.ReadRow();
        if (util::Trim(row, util::lineBlanks).empty() || row.starts_with('\'')) continue;
        row_ = platform::AsUtf8(row);
        Split(row_);
        record.code = util::Trim(fields_[Code]);
        if (record.code.empty()) {
            if (withoutCode_++ == 0) firstWithoutCode_ = Line();
            continue;
        }
        fields_.resize(std::max<std::size_t>(fields_.size(), FirstValue));
        std::optional<double> east = util::WholeNumberOf(fields_[East]),
                              north = util::WholeNumberOf(fields_[North]);
        bool hasHeight = !util::Trim(fields_[Height]).empty();
        std::optional<double> height = hasHeight ? util::WholeNumberOf(fields_[Height]) : 0;
        record.isLocated = east && north && height;
        record.east = east.value_or(0);
        record.north = north.value_or(0);
        record.height = height.value_or(0);
        record.values = std::span(fields_).subspan(FirstValue);
        return true;
    }
    return false;
}

}  // namespace vexlator::formats
