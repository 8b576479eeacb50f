// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/meter/MeterFile.h"

#include "formats/SourceText.h"
#include "platform/CodePages.h"
#include "platform/Errors.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::formats {

namespace {

/// Takes a field and its comma off a line.
std::string_view TakeField(std::string_view& line) {
    std::size_t comma = std::min(line.find(','), line.size());
    std::string_view field = line.substr(0, comma);
    line.remove_prefix(std::min(comma + 1, line.size()));
    return field;
}

}  // namespace

std::optional<util::PlanePoint> MeterPosition(std::string_view remarks) {
    constexpr std::size_t leastDigits = 6, mostDigits = 24;
    std::string_view digits = util::Trim(remarks);
    bool isReference = digits.size() >= 2 * leastDigits && digits.size() <= mostDigits &&
                       std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; });
    if (!isReference || std::ranges::all_of(digits, [](char c) { return c == '0'; })) return std::nullopt;
    // An odd digit belongs to y: grids reach farther to the north than to the east.
    std::size_t xDigits = digits.size() / 2;
    return util::PlanePoint{util::NumberOf(digits.substr(0, xDigits)),
                            util::NumberOf(digits.substr(xDigits))};
}

MeterFile::MeterFile(std::string_view text) : lines_(text) {
    while (NextLine() && line_.empty()) {
    }
    std::string_view line = line_;
    if (TakeField(line) != "mr")
        throw platform::ReadError("", platform::ReadError::AtLine(std::max<std::uint64_t>(lines_.Line(), 1)),
                                  "is no file of meter readings: it does not begin with mr");
    TakeField(line);  // the date
    // The name may hold commas, but no other field may.
    std::size_t end = line.rfind(',');
    std::string_view behindName = end == std::string_view::npos ? "" : line.substr(0, end);
    std::int64_t count = util::IntegerOf(behindName.substr(behindName.rfind(',') + 1));
    announced_ = static_cast<std::uint64_t>(std::max<std::int64_t>(count, 0));
}

bool MeterFile::NextLine() {
    if (lines_.AtEnd()) return false;
    std::string_view line = lines_.ReadTextLine();
    CheckLineLength(line, lines_.Line());
    line_ = platform::AsUtf8(line);
    return true;
}

bool MeterFile::Next(MeterRecord& record) {
    while (NextLine()) {
        std::string_view line = line_;
        if (util::Trim(line).empty()) continue;
        if (TakeField(line) != "cr") {
            if (otherLines_++ == 0) firstOtherLine_ = lines_.Line();
            continue;
        }
        record.reference = TakeField(line);
        record.reading = TakeField(line);
        record.date = TakeField(line);
        record.remarks = line;
        return true;
    }
    return false;
}

}  // namespace vexlator::formats
