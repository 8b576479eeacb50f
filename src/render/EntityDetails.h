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

/// The description of an entity.
struct EntityDetails {
    std::string layer;
    std::string kind;    ///< as in "closed polyline"
    std::string handle;  ///< "" if it has none
    double length = 0;   ///< ground units
    std::uint64_t vertices = 0;
    std::vector<std::pair<std::string, std::string>> texts;  ///< its texts beside its attributes, by name
    std::vector<std::pair<std::string, std::string>> attributes;
};

/// The entity of a drawing file with the number that a scene's items have. Costs a pass over the file up to
/// the entity. None if the file has become shorter.
/// @throws platform::ReadError
std::optional<EntityDetails> DetailsOf(std::string_view path, std::uint32_t entity);

}  // namespace vexlator::render
