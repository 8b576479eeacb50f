// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/QuotedText.h"

#include <cstdint>
#include <cstring>

namespace vexlator::formats {

namespace {

constexpr std::uint64_t ones = 0x0101010101010101U;

/// Not 0 when one of the eight bytes is `byte`.
std::uint64_t Holds(std::uint64_t word, char byte) {
    std::uint64_t differences = word ^ (ones * static_cast<unsigned char>(byte));
    return (differences - ones) & ~differences & (ones << 7);
}

}  // namespace

bool NeedsQuotes(std::string_view field, char delimiter) {
    // Called for every value of an output: eight bytes at a time.
    const char* position = field.data();
    std::size_t left = field.size();
    for (; left >= sizeof(std::uint64_t); left -= sizeof(std::uint64_t), position += sizeof(std::uint64_t)) {
        std::uint64_t word;
        std::memcpy(&word, position, sizeof word);
        if (Holds(word, '"') | Holds(word, delimiter) | Holds(word, '\n') | Holds(word, '\r')) return true;
    }
    for (; left > 0; --left, ++position)
        if (*position == '"' || *position == delimiter || *position == '\n' || *position == '\r') return true;
    return false;
}

void AppendQuoted(std::string& target, std::string_view field) {
    target += '"';
    for (char c : field) target.append(c == '"' ? 2 : 1, c);
    target += '"';
}

}  // namespace vexlator::formats
