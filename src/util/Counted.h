// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Numbers.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::util {

/// A count with its noun, for people: "1 position", "12,345 positions". By default the plural is the noun
/// with an s.
inline std::string Counted(std::uint64_t count, std::string_view noun, std::string_view plural = "") {
    std::string text = GroupedCount(count) + " " + std::string(count == 1 || plural.empty() ? noun : plural);
    return count == 1 || !plural.empty() ? text : text + "s";
}

}  // namespace vexlator::util
