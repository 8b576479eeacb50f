// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace vexlator::coords {

/// How many values a point has in a coordinate system, by its definition. The name is as files have it: a
/// URN, an address of the Open Geospatial Consortium, or as in "EPSG:27700". Nothing for a name that is none
/// of these or not known. Costs a millisecond or more.
std::optional<std::size_t> AxisCount(std::string_view name);

}  // namespace vexlator::coords
