// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace vexlator::gis {

/// A format of geographic data that GDAL reads and writes for us.
struct GisFormat {
    std::string_view code;
    const char* driver;
    std::string_view words;             ///< what a file of the format is called
    bool layersShareFile = false;       ///< one file holds all layers, and their names are feature codes
    bool isInDegrees = false;           ///< its coordinates are longitude and latitude on WGS 84
    bool hasStyles = false;             ///< colours, widths and texts of features
    std::size_t longestText = 0;        ///< bytes of a value; 0: any number
    std::size_t longestColumnName = 0;  ///< bytes; 0: any number
};

/// nullptr for other codes.
const GisFormat* FindGisFormat(std::string_view code);

}  // namespace vexlator::gis
