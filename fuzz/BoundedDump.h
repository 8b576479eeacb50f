// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "vdfjson/DrawingToJson.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace vexlator::fuzz {

/// A small input can produce a long dump: each part of a multiple geometry, and each entity that shares its
/// texts with others, has all the attributes of the whole.
constexpr std::size_t longestDump = std::size_t{32} << 20;
struct TooLong {};

/// The drawing as JSON. @throws TooLong
inline std::string Dump(drawing::Drawing& drawing) {
    std::string json;
    vdfjson::DrawingToJson(drawing, [&](std::string_view piece) {
        json += piece;
        if (json.size() > longestDump) throw TooLong{};
    });
    return json;
}

}  // namespace vexlator::fuzz
