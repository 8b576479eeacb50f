// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/InstallationFiles.h"
#include "util/Text.h"

namespace vexlator::startup {

namespace {

constexpr std::string_view pointTemplate = R"atp([26,09]
[01,01]ID          ,C16.00
[01,02]MATERIAL    ,C20.00
[01,03]DEPTH       ,N08.02
[01,04]PHOTO       ,C64.00
'STYLE=EXAMPLE_POINT,DEFAULT,5
)atp";

constexpr std::string_view lineTemplate = R"atp([26,09]
[01,01]ID          ,C16.00
[01,02]CONDITION   ,C20.00
[01,03]HEIGHT      ,N06.02
'STYLE=EXAMPLE_LINE,,3
)atp";

constexpr std::string_view areaTemplate = R"atp([26,09]
[01,01]ID          ,C16.00
[01,02]LAND_USE    ,C32.00
[01,03]SURVEYED    ,C10.00
[01,04]NOTES       ,X99.00
'STYLE=EXAMPLE_AREA,,94
)atp";

/// The British National Grid (EPSG:27700) with ESRI's names in WKT, because their readers know the grid by
/// these.
constexpr std::string_view britishNationalGrid =
    R"wkt(PROJCS["British_National_Grid",GEOGCS["GCS_OSGB_1936",DATUM["D_OSGB_1936",)wkt"
    R"wkt(SPHEROID["Airy_1830",6377563.396,299.3249646]],PRIMEM["Greenwich",0.0],)wkt"
    R"wkt(UNIT["Degree",0.0174532925199433]],PROJECTION["Transverse_Mercator"],)wkt"
    R"wkt(PARAMETER["False_Easting",400000.0],PARAMETER["False_Northing",-100000.0],)wkt"
    R"wkt(PARAMETER["Central_Meridian",-2.0],PARAMETER["Scale_Factor",0.9996012717],)wkt"
    R"wkt(PARAMETER["Latitude_Of_Origin",49.0],UNIT["Meter",1.0]])wkt";

/// Field devices expect the line ends of Windows.
std::string Template(std::string_view text) {
    return util::ReplaceAll(text, "\n", "\r\n");
}

}  // namespace

std::vector<InstallationFile> DefaultFiles() {
    return {{"ATP/EXAMPLE_POINT.ATP", Template(pointTemplate)},
            {"ATP/EXAMPLE_LINE.ATP", Template(lineTemplate)},
            {"ATP/EXAMPLE_AREA.ATP", Template(areaTemplate)},
            {"Resources/ESRI.PRJ", std::string(britishNationalGrid)}};
}

}  // namespace vexlator::startup
