// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "util/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace vexlator::util {

namespace {

constexpr std::size_t mostDecimals = 15;
constexpr std::array<std::uint64_t, mostDecimals + 1> powersOfTen = [] {
    std::array<std::uint64_t, mostDecimals + 1> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
    return powers;
}();

std::uint64_t PowerOfTen(int decimals) {
    return powersOfTen[static_cast<std::size_t>(decimals)];
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The text from the sign or first digit of its number. from_chars accepts neither blanks nor "+".
std::string_view FromNumber(std::string_view text) {
    std::size_t begin = text.find_first_not_of(" \t\r\n");
    if (begin == std::string_view::npos) return {};
    text.remove_prefix(begin);
    if (text[0] == '+' && !text.starts_with("+-")) text.remove_prefix(1);
    return text;
}

/// Keeps "inf" and "nan" away from from_chars, which accepts them.
bool BeginsWithDigits(std::string_view text) {
    if (text.starts_with('-')) text.remove_prefix(1);
    if (text.starts_with('.')) text.remove_prefix(1);
    return !text.empty() && IsDigit(text[0]);
}

/// The value of a number out of range: the largest double, or 0 for a tiny number.
double OutOfRange(std::string_view text) {
    std::size_t end = std::min(text.find_first_not_of("-.0123456789"), text.size());
    std::string_view mantissa = text.substr(0, end), exponent = text.substr(end);
    bool hasExponent = exponent.starts_with('e') || exponent.starts_with('E');
    bool large = hasExponent ? !exponent.substr(1).starts_with('-')
                             : mantissa.find_first_of("123456789") < mantissa.find('.');
    if (!large) return 0;
    return text[0] == '-' ? std::numeric_limits<double>::lowest() : std::numeric_limits<double>::max();
}

/// `magnitude` times ten to the `decimals`, half rounded up. False if the result is too large, or so near a
/// half that only the decimal digits decide. The shortest text of a value and the product each have an error
/// of at most one part in 2^53. A distance of four such parts from the half is safe.
bool RoundScaled(double magnitude, int decimals, std::uint64_t& whole) {
    double scaled = magnitude * static_cast<double>(PowerOfTen(decimals));
    if (!(scaled < 0x1p50)) return false;
    whole = static_cast<std::uint64_t>(scaled);
    double rest = scaled - static_cast<double>(whole);
    if (std::fabs(rest - 0.5) <= scaled * 0x1p-51) return false;
    if (rest > 0.5) ++whole;
    return true;
}

/// A whole number with its last `decimals` digits behind the point.
char* WriteScaled(char* out, std::uint64_t whole, int decimals) {
    std::uint64_t fraction = whole % PowerOfTen(decimals);
    out = std::to_chars(out, out + 20, whole / PowerOfTen(decimals)).ptr;
    if (decimals == 0) return out;
    *out++ = '.';
    for (char* digit = out + decimals; digit > out; fraction /= 10)
        *--digit = static_cast<char>('0' + fraction % 10);
    return out + decimals;
}

/// The digits of a value's shortest text. The value is 0.DIGITS times ten to the `point`.
struct ShortestDigits {
    explicit ShortestDigits(double magnitude) {
        std::array<char, 40> text;
        const char* end =
            std::to_chars(text.begin(), text.end(), magnitude, std::chars_format::scientific).ptr;
        const char* mark = std::find(static_cast<const char*>(text.begin()), end, 'e');
        for (const char* c = text.begin(); c < mark; ++c)
            if (IsDigit(*c)) digits[static_cast<std::size_t>(count++)] = *c;
        std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, point);
        ++point;
    }
    char At(int place) const {
        return place < 0 || place >= count ? '0' : digits[static_cast<std::size_t>(place)];
    }

    std::array<char, 24> digits{};
    int count = 0;
    int point = 0;
};

/// Adds one to the last digit of a text. The text has digits and at most one point. Its first digit is not 9.
void AddOne(char* end) {
    for (;;) {
        --end;
        if (*end == '.') continue;
        if (*end != '9') break;
        *end = '0';
    }
    ++*end;
}

/// The exact way: rounds the decimal digits themselves.
char* WriteRounded(char* out, double magnitude, int decimals) {
    ShortestDigits shortest(magnitude);
    int end = shortest.point + decimals;
    char* const begin = out;
    *out++ = '0';  // room for the carry of 9.99
    for (int place = std::min(shortest.point - 1, 0); place < std::max(end, shortest.point); ++place) {
        if (place == shortest.point) *out++ = '.';
        *out++ = shortest.At(place);
    }
    if (shortest.At(end) >= '5') AddOne(out);
    if (*begin != '0') return out;
    std::memmove(begin, begin + 1, static_cast<std::size_t>(out - begin - 1));
    return out - 1;
}

}  // namespace

double NumberOf(std::string_view text) {
    text = FromNumber(text);
    if (!BeginsWithDigits(text)) return 0;
    double value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc::result_out_of_range ? OutOfRange(text) : value;
}

std::int64_t IntegerOf(std::string_view text) {
    text = FromNumber(text);
    std::int64_t value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc::result_out_of_range) return value;
    return text[0] == '-' ? std::numeric_limits<std::int64_t>::min()
                          : std::numeric_limits<std::int64_t>::max();
}

char* WriteFixed(char* out, double value, int decimals) {
    if (!std::isfinite(value)) value = 0;
    std::uint64_t whole = 0;
    if (RoundScaled(std::fabs(value), decimals, whole)) {
        if (value < 0 && whole > 0) *out++ = '-';
        return WriteScaled(out, whole, decimals);
    }
    char* begin = value < 0 ? out + 1 : out;
    char* end = WriteRounded(begin, std::fabs(value), decimals);
    if (begin == out) return end;
    *out = '-';
    if (std::any_of(begin, end, [](char c) { return c >= '1' && c <= '9'; })) return end;
    return std::copy(begin, end, out);
}

std::string FormatFixed(double value, int decimals) {
    std::array<char, longestFixed> text;
    return {text.data(), WriteFixed(text.data(), value, decimals)};
}

double RoundFixed(double value, int decimals) {
    std::uint64_t whole = 0;
    if (!std::isfinite(value)) return 0;
    if (!RoundScaled(std::fabs(value), decimals, whole)) return NumberOf(FormatFixed(value, decimals));
    // Both are exact, so the quotient is the double nearest to the decimal text.
    double rounded = static_cast<double>(whole) / static_cast<double>(PowerOfTen(decimals));
    return value < 0 && whole > 0 ? -rounded : rounded;
}

std::string FormatShortest(double value) {
    std::array<char, longestShortest> text;
    return {text.data(), WriteShortest(text.data(), value)};
}

char* WriteShortest(char* out, double value) {
    if (!std::isfinite(value) || value == 0) {
        *out = '0';
        return out + 1;
    }
    double magnitude = std::abs(value);
    bool plain = magnitude >= 1e-6 && magnitude < 1e15;
    return std::to_chars(out, out + longestShortest, value,
                         plain ? std::chars_format::fixed : std::chars_format::scientific)
        .ptr;
}

std::string ZeroPadded(std::int64_t value, int digits) {
    std::string text = std::to_string(value);
    std::size_t sign = value < 0 ? 1 : 0, wanted = sign + static_cast<std::size_t>(std::max(digits, 0));
    if (text.size() < wanted) text.insert(sign, wanted - text.size(), '0');
    return text;
}

std::string GroupedCount(std::uint64_t value) {
    std::string text = std::to_string(value);
    for (std::size_t place = text.size(); place > 3; place -= 3) text.insert(place - 3, 1, ',');
    return text;
}

}  // namespace vexlator::util
