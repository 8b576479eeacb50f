// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace vexlator::coords {

/// The number of values of a point in a coordinate system, by its definition. The name is as in files: a URN,
/// a web address of the Open Geospatial Consortium, or a form like "EPSG:27700". Nothing for other or unknown
/// names. Costs a millisecond or more.
std::optional<std::size_t> AxisCount(std::string_view name);

}  // namespace vexlator::coords
