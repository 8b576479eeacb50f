// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "util/Dates.h"

#include "util/Numbers.h"

#include <array>

namespace vexlator::util {

std::string_view MonthAbbrev(int month) {
    static constexpr std::array<std::string_view, 12> names = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                                               "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    return month >= 1 && month <= 12 ? names[static_cast<std::size_t>(month - 1)] : std::string_view();
}

std::string DayMonthText(const platform::DateTime& when) {
    return ZeroPadded(when.day, 2).append(MonthAbbrev(when.month));
}

std::string DayMonthYearText(const platform::DateTime& when) {
    return DayMonthText(when) + ZeroPadded(when.year, 4);
}

std::string TimeText(const platform::DateTime& when) {
    return ZeroPadded(when.hour, 2) + ":" + ZeroPadded(when.minute, 2);
}

std::string SlashDateText(const platform::DateTime& when) {
    return ZeroPadded(when.day, 2) + "/" + ZeroPadded(when.month, 2) + "/" + ZeroPadded(when.year, 4);
}

}  // namespace vexlator::util
