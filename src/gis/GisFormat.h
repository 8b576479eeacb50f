// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vexlator::gis {

/// Which geometries a layer is made for.
enum class LayerGeometry {
    AsSeen,  ///< those of the drawing, as nothing else will come
    Any,     ///< any kind with heights, as later drawings add to the layer
    OneKind  ///< points, lines or areas, with heights
};

/// A format of geographic data that GDAL reads and writes for us.
struct GisFormat {
    std::string_view code;
    const char* driver;                 ///< null for any
    std::string_view words;             ///< what a file of the format is called
    bool layersShareFile = false;       ///< one file holds all layers, and their names are feature codes
    bool isInDegrees = false;           ///< its coordinates are longitude and latitude on WGS 84
    bool hasStyles = false;             ///< colours, widths and texts of features
    std::size_t longestText = 0;        ///< bytes of a value; 0: any number
    std::size_t longestColumnName = 0;  ///< bytes; 0: any number
    bool hasPlainNames = false;         ///< of columns and layers: ASCII letters, digits and "_"
    LayerGeometry geometry = LayerGeometry::AsSeen;
    bool isServer = false;  ///< its sources are connections, as in "PG:dbname=county", not files
};

/// A name as it is called in the format.
std::string NameIn(const GisFormat& format, std::string name);

/// nullptr for other codes.
const GisFormat* FindGisFormat(std::string_view code);

}  // namespace vexlator::gis
