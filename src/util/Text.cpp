// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "util/Text.h"

#include "platform/AsciiCase.h"
#include "util/Numbers.h"

#include <algorithm>

namespace vexlator::util {

std::string_view GetField(std::size_t index, std::string_view text, std::string_view delimiter) {
    if (delimiter.empty()) return index == 0 ? text : std::string_view();
    for (; index > 0; --index) {
        std::size_t hit = text.find(delimiter);
        if (hit == std::string_view::npos) return {};
        text.remove_prefix(hit + delimiter.size());
    }
    return text.substr(0, text.find(delimiter));
}

std::string_view GetCommaField(std::size_t index, std::string_view text) {
    return GetField(index, text, ",");
}

double GetCommaNumber(std::size_t index, std::string_view text) {
    return NumberOf(GetCommaField(index, text));
}

std::string_view GetBarField(std::size_t index, std::string_view text) {
    return GetField(index, text, "|");
}

std::size_t CountOf(std::string_view text, std::string_view part) {
    std::size_t count = 0;
    if (part.empty()) return count;
    for (std::size_t hit = text.find(part); hit != std::string_view::npos; hit = text.find(part, hit + 1))
        ++count;
    return count;
}

std::size_t InStrNoCase(std::string_view text, std::string_view part) {
    std::size_t hit = platform::LowerAscii(text).find(platform::LowerAscii(part));
    return hit == std::string::npos ? 0 : hit + 1;
}

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view by) {
    std::string result;
    while (!what.empty()) {
        std::size_t hit = text.find(what);
        if (hit == std::string_view::npos) break;
        result.append(text.substr(0, hit)).append(by);
        text.remove_prefix(hit + what.size());
    }
    return result.append(text);
}

std::string FieldNameFor(std::string_view name) {
    if (platform::SameNoCase(name, "DATE")) return "gvDate";
    std::string result(name);
    std::replace(result.begin(), result.end(), ' ', '_');
    return result;
}

std::string PercentEncoded(std::string_view text, std::string_view plain) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string encoded;
    for (char c : text) {
        bool isLetter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        auto byte = static_cast<unsigned char>(c);
        if (isLetter || (c >= '0' && c <= '9') || plain.find(c) != std::string_view::npos)
            encoded += c;
        else
            encoded += {'%', digits[byte >> 4], digits[byte & 15]};
    }
    return encoded;
}

}  // namespace vexlator::util
