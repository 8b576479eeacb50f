// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gpx/TrailFile.h"

#include "util/Numbers.h"
#include "util/Text.h"
#include "util/WholeNumber.h"

namespace vexlator::gpx {

namespace {

bool IsPattern(std::string_view text, std::string_view pattern) {
    if (text.size() != pattern.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        bool isDigit = text[i] >= '0' && text[i] <= '9';
        if (pattern[i] == '0' ? !isDigit : text[i] != pattern[i]) return false;
    }
    return true;
}

int DaysIn(int month, int year) {
    if (month == 2) return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0 ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

}  // namespace

TrailTime::TrailTime(std::string_view dateAndTime) {
    Append(dateAndTime, 6, 4);
    Append('-');
    Append(dateAndTime, 3, 2);
    Append('-');
    Append(dateAndTime, 0, 2);
    Append('T');
    Append(dateAndTime, 11, 8);
}

void TrailTime::Append(std::string_view text, std::size_t begin, std::size_t length) {
    if (begin >= text.size()) return;
    for (char c : text.substr(begin, length)) Append(c >= ' ' && c <= '~' ? c : '?');
}

bool TrailTime::IsValid() const {
    if (!IsPattern(Text(), "0000-00-00T00:00:00")) return false;
    auto number = [&](std::size_t begin, std::size_t length) {
        return static_cast<int>(util::IntegerOf(Text().substr(begin, length)));
    };
    int year = number(0, 4), month = number(5, 2), day = number(8, 2);
    return year > 0 && month >= 1 && month <= 12 && day >= 1 && day <= DaysIn(month, year) &&
           number(11, 2) < 24 && number(14, 2) < 60 && number(17, 2) < 60;
}

bool HasCoordinates(std::string_view line) {
    return util::IsWhollyNumber(util::GetCommaField(1, line)) &&
           util::IsWhollyNumber(util::GetCommaField(2, line));
}

TrailPosition ParseTrailLine(std::string_view line) {
    TrailPosition position;
    position.time = TrailTime(util::GetCommaField(0, line));
    position.grid = {util::GetCommaNumber(1, line), util::GetCommaNumber(2, line)};
    position.height = util::GetCommaNumber(3, line);
    return position;
}

std::string_view LastLine(std::string_view text) {
    if (text.ends_with("\r\n"))
        text.remove_suffix(2);
    else if (text.ends_with('\n') || text.ends_with('\r'))
        text.remove_suffix(1);
    return text.substr(text.find_last_of("\r\n") + 1);
}

}  // namespace vexlator::gpx
