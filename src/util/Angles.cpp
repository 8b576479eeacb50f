// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "util/Angles.h"

#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vexlator::util {

namespace {

constexpr double fullCircle = 2 * std::numbers::pi;

/// Whole seconds of a positive angle, and their fraction in units of the last decimal.
struct Seconds {
    std::int64_t whole = 0;
    std::int64_t fraction = 0;
};

Seconds RoundedSeconds(double seconds) {
    return {std::llround(seconds), 0};
}

Seconds CutSeconds(double seconds, int decimals) {
    // The factor between radians and degrees is too small by a few parts in 10^16. Without the nudge, 90
    // degrees would become slightly less.
    constexpr double nudge = 1e-9;
    double whole = std::floor(seconds + nudge);
    auto unit = static_cast<std::int64_t>(std::pow(10.0, decimals));
    double rest = std::max(seconds + nudge - whole, 0.0);
    auto fraction = static_cast<std::int64_t>(rest * static_cast<double>(unit));
    Seconds result{static_cast<std::int64_t>(whole), fraction};
    if (result.fraction >= unit) result = {result.whole + 1, 0};
    return result;
}

/// Takes a run of digits from the start of the text.
std::string_view TakeDigits(std::string_view& text) {
    std::size_t end = std::min(text.find_first_not_of("0123456789"), text.size());
    std::string_view digits = text.substr(0, end);
    text.remove_prefix(end);
    return digits;
}

bool Take(std::string_view& text, char mark) {
    if (!text.starts_with(mark)) return false;
    text.remove_prefix(1);
    return true;
}

}  // namespace

std::string FormatAngleText(double radians, std::optional<int> decimals) {
    if (!std::isfinite(radians)) radians = 0;
    if (radians > fullCircle) radians = std::fmod(radians, fullCircle);
    std::string text = radians < 0 ? "-" : "";
    // Far more turns than any angle has. The limit keeps the seconds within whole numbers.
    double degrees = std::min(std::fabs(radians) * degreesPerRadian, 1e12);
    int places = decimals ? std::clamp(*decimals, 0, 15) : 0;
    double wholeDegrees = std::floor(degrees);
    double seconds = (degrees - wholeDegrees) * 3600;
    Seconds split = decimals ? CutSeconds(seconds, places) : RoundedSeconds(seconds);
    std::int64_t all = static_cast<std::int64_t>(wholeDegrees) * 3600 + split.whole;
    if (all / 3600 == 360) all -= std::int64_t{360} * 3600;
    text +=
        ZeroPadded(all / 3600, 3) + "." + ZeroPadded(all / 60 % 60, 2) + "'" + ZeroPadded(all % 60, 2) + "\"";
    if (places > 0) text += ZeroPadded(split.fraction, places);
    return text;
}

std::optional<double> ParseAngleText(std::string_view text) {
    text = Trim(text, lineBlanks);
    bool negative = Take(text, '-');
    if (!negative) Take(text, '+');
    std::string_view degrees = TakeDigits(text), minutes, seconds, fraction;
    if (Take(text, '.')) minutes = TakeDigits(text);
    if (Take(text, '\'')) seconds = TakeDigits(text);
    if (Take(text, '"')) fraction = TakeDigits(text);
    if (degrees.empty() || !text.empty()) return std::nullopt;
    double value = NumberOf(degrees) + NumberOf(minutes) / 60 +
                   (NumberOf(seconds) + NumberOf("0." + std::string(fraction))) / 3600;
    return (negative ? -value : value) / degreesPerRadian;
}

}  // namespace vexlator::util
