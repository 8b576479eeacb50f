// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/FeatureCode.h"

#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>
#include <cstddef>

namespace vexlator::importer {

namespace {

constexpr std::size_t longestCode = 14;

bool ContinuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

std::string_view LastCharacters(std::string_view text, std::size_t count) {
    std::size_t begin = text.size();
    while (begin > 0 && count > 0)
        if (!ContinuesCharacter(text[--begin])) --count;
    return text.substr(begin);
}

}  // namespace

std::string Capitals(std::string_view text) {
    std::string result(text);
    for (std::size_t i = 0; i < result.size(); ++i) {
        auto byte = static_cast<unsigned char>(result[i]);
        bool latin = i > 0 && static_cast<unsigned char>(result[i - 1]) == 0xC3;
        bool smallLatin = latin && byte >= 0xA0 && byte <= 0xBE && byte != 0xB7;
        if ((byte >= 'a' && byte <= 'z') || smallLatin) result[i] = static_cast<char>(byte - 0x20);
    }
    return result;
}

drawing::Colour StyleColour(std::string_view style) {
    std::int64_t number = util::IntegerOf(util::GetCommaField(2, style));
    return static_cast<drawing::Colour>(std::clamp<std::int64_t>(number, 0, 0xFFFFFF));
}

std::string FeatureCodeOf(std::string_view path) {
    std::string base = util::BaseNameOf(path);
    std::string_view code = util::Trim(base);
    code = code.substr(code.rfind(' ') + 1);
    return Capitals(LastCharacters(code, longestCode));
}

}  // namespace vexlator::importer
