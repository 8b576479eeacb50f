// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/mif/MifLines.h"

#include "import/TextSource.h"
#include "util/Numbers.h"

namespace vexlator::importer {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

void SkipBlanks(std::string_view& line) {
    std::size_t begin = 0;
    while (begin < line.size() && IsBlank(line[begin])) ++begin;
    line.remove_prefix(begin);
}

std::string_view TakeField(std::string_view& line) {
    SkipBlanks(line);
    std::size_t end = 0;
    while (end < line.size() && !IsBlank(line[end])) ++end;
    std::string_view field = line.substr(0, end);
    line.remove_prefix(end);
    return field;
}

/// Takes a number that is written in plain digits and ends at a blank or with the line. Up to 15 digits make
/// a whole number that a double holds, as it does the power of ten that the point stands for: their quotient
/// is the nearest double. False, and nothing taken, for any other text.
bool TakePlainNumber(std::string_view& line, double& number) {
    constexpr std::array<double, 16> powersOfTen = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                    1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const char *at = line.data(), *const end = at + line.size();
    while (at < end && IsBlank(*at)) ++at;
    bool negative = at < end && *at == '-';
    if (negative) ++at;
    std::uint64_t digits = 0;
    const char* const begin = at;
    for (; at < end && IsDigit(*at); ++at) digits = digits * 10 + static_cast<unsigned>(*at - '0');
    std::ptrdiff_t count = at - begin, decimals = 0;
    if (at < end && *at == '.') {
        const char* const point = ++at;
        for (; at < end && IsDigit(*at); ++at) digits = digits * 10 + static_cast<unsigned>(*at - '0');
        decimals = at - point;
        count += decimals;
    }
    if (count == 0 || count > 15 || (at < end && !IsBlank(*at))) return false;
    number = static_cast<double>(digits) / powersOfTen[static_cast<std::size_t>(decimals)];
    if (negative) number = -number;
    line.remove_prefix(static_cast<std::size_t>(at - line.data()));
    return true;
}

double TakeNumber(std::string_view& line) {
    double number;
    return TakePlainNumber(line, number) ? number : util::NumberOf(TakeField(line));
}

}  // namespace

bool IsCoordinateLine(std::string_view line) {
    SkipBlanks(line);
    std::size_t sign = line.starts_with('-') ? 1 : 0;
    if (line.size() <= sign || !IsDigit(line[sign])) return false;
    TakeField(line);
    SkipBlanks(line);
    return !line.empty();
}

std::array<double, 6> MifNumbers(std::string_view line) {
    std::array<double, 6> numbers{};
    for (double& number : numbers) number = TakeNumber(line);
    return numbers;
}

std::string_view MifLines::ReadTextLine() {
    std::string_view line = lines_.ReadTextLine();
    if (line.size() > longestLine) throw Error(std::string(lineTooLong));
    return line;
}

platform::ReadError MifLines::Error(const std::string& reason) const {
    return {std::string(fileName_), platform::ReadError::AtLine(Line()), reason};
}

std::string_view MifLines::PeekTextLine() const {
    MifLines ahead = *this;
    return ahead.ReadTextLine();
}

std::size_t MifLines::ReadCoordinates(std::span<util::PlanePoint> target) {
    std::size_t count = 0;
    while (count < target.size()) {
        util::LineReader ahead = lines_;
        std::string_view line = ahead.ReadTextLine();
        if (!IsCoordinateLine(line)) break;
        double x = TakeNumber(line);
        target[count++] = {x, TakeNumber(line)};
        lines_ = ahead;
    }
    return count;
}

}  // namespace vexlator::importer
