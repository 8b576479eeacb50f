// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/CodePages.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::background {

/// A text as part of a line in Windows-1252. Control characters become blanks. `replaced` counts the
/// characters outside the code page.
inline std::string PlainLine(std::string_view utf8, std::uint64_t& replaced) {
    std::string line = platform::Windows1252FromUtf8(utf8, &replaced);
    std::ranges::replace_if(
        line, [](unsigned char byte) { return byte < 0x20 || byte == 0x7F; }, ' ');
    return line;
}

}  // namespace vexlator::background
