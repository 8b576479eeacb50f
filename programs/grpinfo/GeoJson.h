// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/PackageReader.h"

#include <functional>
#include <string_view>

namespace vexlator::grpinfo {

/// Every element of a proved package as a feature of a GeoJSON collection, in the coordinates of the package:
/// points, line strings, polygons with their rings (in the package's order) and texts as points.
void PrintGeoJson(const background::PackageReader& package,
                  const std::function<void(std::string_view)>& print);

}  // namespace vexlator::grpinfo
