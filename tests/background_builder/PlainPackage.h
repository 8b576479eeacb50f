// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>

namespace vexlator::test {

/// A package as texts to compare.
struct PlainPackage {
    std::map<std::string, std::string> tiles;  ///< by name of the tile file: its elements, one a line
    std::string layers, gazetteer;             ///< the files as they are
};

/// What the files of a package hold. Coordinates have four digits and rotations no whole turns, so that the
/// last bits of sines and cosines do not count.
PlainPackage ReadBack(const std::string& packageFile);

}  // namespace vexlator::test
