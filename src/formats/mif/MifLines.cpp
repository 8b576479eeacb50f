// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/mif/MifLines.h"

#include "formats/SourceText.h"
#include "util/Numbers.h"
#include "util/ShortDecimal.h"

namespace vexlator::formats {

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

/// A number takes its whole field: it ends at a blank or at the end of the line.
double TakeNumber(std::string_view& line) {
    SkipBlanks(line);
    const char* end = line.data() + line.size();
    double number = 0;
    const char* stop = util::ReadShortDecimal(line.data(), end, number);
    if (!stop || (stop < end && !IsBlank(*stop))) return util::NumberOf(TakeField(line));
    line.remove_prefix(static_cast<std::size_t>(stop - line.data()));
    return number;
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

}  // namespace vexlator::formats
