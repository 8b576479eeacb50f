// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/Records.h"
#include "util/Angles.h"

#include <map>
#include <string>
#include <vector>

namespace vexlator::test {

/// A package as texts to compare.
struct PlainPackage {
    std::map<std::string, std::string> tiles;  ///< by name of the tile file: its elements, one a line
    std::string layers, gazetteer;             ///< the files as they are
};

/// What the files of a package hold.
PlainPackage ReadBack(const std::string& packageFile);

// Lines of a tile. Coordinates have four digits and rotations no whole turns: symbols are placed with a
// rounding of their own.

/// The first one.
std::string TileText(double size);
std::string LineText(const background::ElementHeader& header, util::PlanePoint first,
                     const std::vector<background::Step>& steps);
std::string TextText(const background::ElementHeader& header, util::PlanePoint anchor, int height,
                     int rotation, const std::string& characters);
std::string AreaText(const background::ElementHeader& header, const background::Box& box, int rings,
                     int tile);

}  // namespace vexlator::test
