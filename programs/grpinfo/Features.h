// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/ElementReader.h"
#include "background/package/PackageReader.h"

#include <functional>
#include <string>
#include <vector>

namespace vexlator::grpinfo {

/// Calls `take` for every element of the tile files with one of the letters, in the order of the container;
/// of a mosaic, package after package. The package has been proved.
void ForEachElement(const background::PackageReader& package, std::string_view letters,
                    const std::function<void(const background::PackageReader&, const background::Tile&,
                                             const background::Element&)>& take);

/// The vertices of an area's rings.
std::vector<std::vector<util::PlanePoint>> RingsOf(const background::PackageReader& package,
                                                   const background::Element& area);

/// How the device shows an element.
struct Look {
    std::string colour;  ///< as in "#c00000"
    bool isThick = false;
};
/// Classified features by their theme, others by their colour; device styles are black.
Look LookOf(const background::ElementHeader& header);

}  // namespace vexlator::grpinfo
