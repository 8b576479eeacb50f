// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/mif/MifLines.h"

#include "util/Numbers.h"

namespace vexlator::importer {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view TakeField(std::string_view& line) {
    std::size_t begin = 0, end;
    while (begin < line.size() && IsBlank(line[begin])) ++begin;
    for (end = begin; end < line.size() && !IsBlank(line[end]);) ++end;
    std::string_view field = line.substr(begin, end - begin);
    line.remove_prefix(end);
    return field;
}

}  // namespace

std::string_view TrimmedLine(std::string_view line) {
    std::size_t begin = line.find_first_not_of(mifBlanks);
    if (begin == std::string_view::npos) return {};
    return line.substr(begin, line.find_last_not_of(mifBlanks) - begin + 1);
}

bool IsCoordinateLine(std::string_view line) {
    std::string_view rest = line;
    std::string_view first = TakeField(rest);
    if (first.starts_with('-')) first.remove_prefix(1);
    return !first.empty() && IsDigit(first[0]) && !TakeField(rest).empty();
}

std::array<double, 6> MifNumbers(std::string_view line) {
    std::array<double, 6> numbers{};
    for (double& number : numbers) number = util::NumberOf(TakeField(line));
    return numbers;
}

std::string_view MifLines::PeekTextLine() const {
    util::LineReader ahead = lines_;
    return ahead.ReadTextLine();
}

std::size_t MifLines::ReadCoordinates(std::span<util::PlanePoint> target) {
    std::size_t count = 0;
    while (count < target.size()) {
        util::LineReader ahead = lines_;
        std::string_view line = ahead.ReadTextLine();
        if (!IsCoordinateLine(line)) break;
        double x = util::NumberOf(TakeField(line));
        target[count++] = {x, util::NumberOf(TakeField(line))};
        lines_ = ahead;
    }
    return count;
}

}  // namespace vexlator::importer
