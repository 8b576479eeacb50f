// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

/// Searches texts eight bytes at a time, for checks of every value of an output.
namespace vexlator::formats {

constexpr std::uint64_t everyByte = 0x0101010101010101U;
constexpr std::uint64_t highBits = everyByte << 7;

template <typename Number>
std::uint64_t NumberAt(const char* position) {
    Number number;
    std::memcpy(&number, position, sizeof number);
    return number;
}

/// Calls `look` with words that together hold all bytes of the text and no others. Some bytes occur more than
/// once.
template <typename Look>
void ForEachWord(std::string_view text, Look look) {
    const char* position = text.data();
    const char* end = position + text.size();
    if (text.size() >= 8) {
        for (; end - position > 8; position += 8) look(NumberAt<std::uint64_t>(position));
        look(NumberAt<std::uint64_t>(end - 8));
    } else if (text.size() >= 4) {
        look(NumberAt<std::uint32_t>(position) | NumberAt<std::uint32_t>(end - 4) << 32);
    } else if (!text.empty()) {
        std::uint64_t middle = NumberAt<std::uint8_t>(position + text.size() / 2);
        look(NumberAt<std::uint8_t>(position) * (everyByte << 16) | middle << 8 |
             NumberAt<std::uint8_t>(end - 1));
    }
}

/// Sets the highest bit of some byte if one of the eight is `byte`; sets none otherwise.
constexpr std::uint64_t Holds(std::uint64_t word, char byte) {
    std::uint64_t differences = word ^ (everyByte * static_cast<unsigned char>(byte));
    return (differences - everyByte) & ~differences & highBits;
}

}  // namespace vexlator::formats
