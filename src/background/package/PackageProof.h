// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/PackageReader.h"

#include <cstdint>
#include <string>

namespace vexlator::background {

/// Number of objects in a package.
struct PackageCounts {
    std::uint64_t packages = 0;  ///< in a mosaic
    std::uint64_t tiles = 0;
    std::uint64_t lines = 0, points = 0, vertices = 0;
    std::uint64_t areas = 0, rings = 0;
    std::uint64_t texts = 0;
    std::uint64_t layerRecords = 0, searchValues = 0;
    std::uint64_t images = 0;
};

/// Proves a whole package: every tile file is in the index with its box and in the container; every box
/// covers its elements and no more; every ring reference reaches a closed line element with the keys of its
/// area, and the rings of an area fill its box; texts have a height, and headers the length of a text; keys
/// lead to records of the layer file where features have no identifiers; the lines of the layer file and the
/// gazetteer are whole and in order. Coordinates of lines are compared with the tolerance of their steps,
/// half a hundredth each. The boxes of
/// an image package are those of its tiles. The packages of a mosaic are proved in turn.
/// @throws ReadError for the first fault
PackageCounts ProvePackage(const PackageReader& package);

/// The path of a package that is named in a mosaic.
std::string MemberPackage(const PackageReader& mosaic, const IndexEntry& entry);

}  // namespace vexlator::background
