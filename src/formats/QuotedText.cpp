// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/QuotedText.h"

#include "formats/Words.h"

namespace vexlator::formats {

bool NeedsQuotes(std::string_view field, char delimiter) {
    std::uint64_t found = 0;
    ForEachWord(field, [&](std::uint64_t word) {
        found |= Holds(word, '"') | Holds(word, delimiter) | Holds(word, '\n') | Holds(word, '\r');
    });
    return found != 0;
}

bool IsSimple(std::string_view field) {
    std::uint64_t found = 0;
    ForEachWord(field, [&](std::uint64_t word) {
        std::uint64_t control = (word - everyByte * ' ') & ~word;
        found |= word | control | Holds(word, '"') | Holds(word, ',');
    });
    return (found & highBits) == 0;
}

void AppendQuoted(std::string& target, std::string_view field) {
    target += '"';
    for (char c : field) target.append(c == '"' ? 2 : 1, c);
    target += '"';
}

}  // namespace vexlator::formats
