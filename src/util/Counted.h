// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Numbers.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::util {

/// A count with its noun, for people: "1 position", "12,345 positions".
inline std::string Counted(std::uint64_t count, std::string_view noun) {
    return GroupedCount(count) + " " + std::string(noun) + (count == 1 ? "" : "s");
}

}  // namespace vexlator::util
