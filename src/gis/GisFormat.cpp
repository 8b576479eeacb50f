// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gis/GisFormat.h"

#include <algorithm>
#include <iterator>

namespace vexlator::gis {

namespace {

constexpr GisFormat gisFormats[] = {
    {.code = "GPKG", .driver = "GPKG", .words = "GeoPackage", .layersShareFile = true},
    {.code = "GEOJSON", .driver = "GeoJSON", .words = "GeoJSON file", .isInDegrees = true},
    {.code = "FGB", .driver = "FlatGeobuf", .words = "FlatGeobuf file"},
    {.code = "TAB",
     .driver = "MapInfo File",
     .words = "MapInfo table",
     .hasStyles = true,
     .longestText = 254,
     .longestColumnName = 31},
};

}  // namespace

std::string NameIn(const GisFormat& format, std::string name) {
    if (!format.hasPlainNames) return name;
    constexpr std::string_view digits = "0123456789",
                               letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    for (char& c : name)
        if (digits.find(c) == digits.npos && letters.find(c) == letters.npos) c = '_';
    bool begins = !name.empty() && letters.find(name.front()) != letters.npos;
    return begins ? name : "F" + name;
}

const GisFormat* FindGisFormat(std::string_view code) {
    auto found = std::ranges::find(gisFormats, code, &GisFormat::code);
    return found == std::end(gisFormats) ? nullptr : &*found;
}

}  // namespace vexlator::gis
