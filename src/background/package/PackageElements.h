// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/ElementReader.h"
#include "background/package/PackageReader.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::background {

/// Calls `take` for every element of the tile files with one of the letters, in the order of the container;
/// for a mosaic, package by package. The package must have been proved.
void ForEachElement(const PackageReader& package, std::string_view letters,
                    const std::function<void(const PackageReader&, const Tile&, const Element&)>& take);

/// Calls `take` for every tile of an image package; of a mosaic, package after package.
void ForEachImage(const PackageReader& package, const std::function<void(const ImageTile&)>& take);

/// The vertices of an area's rings.
std::vector<std::vector<util::PlanePoint>> RingsOf(const PackageReader& package, const Element& area);

/// The look of an element on the device.
struct Look {
    std::string_view name;  ///< name of the theme or the colour
    std::uint32_t rgb = 0;  ///< as in 0xC00000
    bool isThick = false;
    bool isMobile = false;       ///< class byte B is the number of its mobile style; `rgb` is black
    std::string Colour() const;  ///< as in "#c00000"
};
/// Classified features by their theme, others by their colour or mobile style.
Look LookOf(const ElementHeader& header);

}  // namespace vexlator::background
