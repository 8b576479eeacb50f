// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vexlator::render {

/// An entity in words.
struct EntityDetails {
    std::string layer;
    std::string kind;    ///< as in "closed polyline"
    std::string handle;  ///< "" where there are none
    double length = 0;   ///< ground units
    std::uint64_t vertices = 0;
    std::vector<std::pair<std::string, std::string>> texts;  ///< what it says beside its attributes, by name
    std::vector<std::pair<std::string, std::string>> attributes;
};

/// The entity of a drawing file that a scene's items name by its number, which costs a pass over the file up
/// to there. None when the file has become shorter. @throws platform::ReadError
std::optional<EntityDetails> DetailsOf(std::string_view path, std::uint32_t entity);

}  // namespace vexlator::render
