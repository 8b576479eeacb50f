// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/AsciiCase.h"

#include <algorithm>

namespace vexlator::platform {

bool SameNoCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                              [](char x, char y) { return LowerAscii(x) == LowerAscii(y); });
}

int CompareNoCase(std::string_view a, std::string_view b) {
    auto byte = [](char c) { return static_cast<unsigned char>(LowerAscii(c)); };
    for (std::size_t i = 0; i < a.size() && i < b.size(); ++i)
        if (byte(a[i]) != byte(b[i])) return byte(a[i]) < byte(b[i]) ? -1 : 1;
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

std::string LowerAscii(std::string_view text) {
    std::string result(text);
    for (char& c : result) c = LowerAscii(c);
    return result;
}

std::string UpperAscii(std::string_view text) {
    std::string result(text);
    for (char& c : result) c = UpperAscii(c);
    return result;
}

}  // namespace vexlator::platform
