// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/mif/MifHeader.h"

#include "platform/AsciiCase.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::formats {

namespace {

constexpr int defaultWidth = 64;
constexpr int numberWidth = 10;
constexpr int smallintWidth = 6;
constexpr std::int64_t mostColumns = 32767;
constexpr std::size_t columnsLength = 8;  // length of "COLUMNS" and a blank

/// The number after the first parenthesis; `without` if there is none.
int WidthInParentheses(std::string_view type, int without) {
    std::size_t open = type.find('(');
    if (open == std::string_view::npos) return without;
    return static_cast<int>(std::clamp<std::int64_t>(util::IntegerOf(type.substr(open + 1)), 0, 32767));
}

MifColumn ColumnOf(std::string_view line, platform::Decoder& decoder) {
    line = TrimmedLine(line);
    std::size_t nameEnd = std::min(line.find_first_of(mifBlanks), line.size());
    std::string name = decoder.Decode(line.substr(0, nameEnd));
    std::erase(name, '"');
    return {std::move(name), std::string(TrimmedLine(line.substr(nameEnd)))};
}

void ReadColumns(MifLines& lines, std::int64_t count, MifHeader& header) {
    platform::Decoder decoder = MifDecoder(header.charset);
    for (std::int64_t i = 0; i < count && !lines.AtEnd(); ++i) {
        header.columns.push_back(ColumnOf(lines.ReadTextLine(), decoder));
        if (i == mostColumns) throw lines.Error("more than 32,767 columns");
    }
}

void ReadDelimiter(std::string_view line, MifHeader& header) {
    std::size_t quote = line.find('"');
    if (quote == std::string_view::npos || quote + 1 == line.size()) return;
    std::string text = MifDecoder(header.charset).Decode(line.substr(quote + 1));
    if (!text.empty()) header.delimiter = platform::FirstCharacters(text, 1);
}

}  // namespace

bool IsNeutralCharset(std::string_view charset) {
    return charset.empty() || platform::SameNoCase(charset, "Neutral");
}

platform::Decoder MifDecoder(std::string_view charset) {
    return platform::Decoder(IsNeutralCharset(charset) ? "UTF-8" : charset);
}

int MifColumnWidth(std::string_view type) {
    switch (type.empty() ? '\0' : platform::UpperAscii(type.substr(0, 1))[0]) {
        case 'C':
            return WidthInParentheses(type, defaultWidth);
        case 'S':
            return smallintWidth;
        case 'I':
        case 'D':
        case 'F':
            return WidthInParentheses(type, numberWidth);
        default:
            return defaultWidth;
    }
}

std::optional<MifHeader> ReadMifHeader(MifLines& lines) {
    MifHeader header;
    while (!lines.AtEnd()) {
        std::string_view line = TrimmedLine(lines.ReadTextLine());
        std::string upper = platform::UpperAscii(line);
        if (upper.find("DELIMITER") != std::string::npos) {
            ReadDelimiter(line, header);
        } else if (upper.starts_with("CHARSET")) {
            header.charset = util::GetField(1, line, "\"");
        } else if (upper.find("COLUMNS") != std::string::npos) {
            ReadColumns(lines, util::IntegerOf(line.substr(std::min(columnsLength, line.size()))), header);
            return header;
        }
    }
    return std::nullopt;
}

}  // namespace vexlator::formats
