// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "georef/Sentence.h"

#include <utility>

namespace vexlator::georef {

std::string Filled(std::string_view text, const std::vector<std::string>& values) {
    std::string filled;
    for (; !text.empty(); text.remove_prefix(1)) {
        std::size_t value =
            text[0] == '%' && text.size() > 1 ? static_cast<unsigned char>(text[1] - '1') : values.size();
        if (value >= values.size()) {
            filled += text[0];
            continue;
        }
        filled += values[value];
        text.remove_prefix(1);
    }
    return filled;
}

Sentence Plainly(const char* text) {
    Sentence sentence;
    sentence.parts_.push_back({text, {}});
    return sentence;
}

Sentence InWords(const char*, const char* text) {
    return Plainly(text);
}

Sentence Sentence::With(std::vector<std::string> values) && {
    parts_.back().values = std::move(values);
    return std::move(*this);
}

std::string Sentence::English() const {
    std::string english;
    for (const Part& part : parts_) english += Filled(part.text, part.values);
    return english;
}

Sentence& Sentence::operator+=(const Sentence& more) {
    parts_.insert(parts_.end(), more.parts_.begin(), more.parts_.end());
    return *this;
}

std::string Quote(std::string_view typed) {
    constexpr std::size_t longest = 60;
    auto isInside = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };  // a character
    std::size_t end = typed.size();
    if (end > longest)
        for (end = longest; end > 0 && isInside(typed[end]);) --end;
    return "\"" + std::string(typed.substr(0, end)) + (end < typed.size() ? "..." : "") + "\"";
}

}  // namespace vexlator::georef
