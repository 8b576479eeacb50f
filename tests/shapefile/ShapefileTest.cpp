// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/shapefile/frmFromSHP.h"

#include <gtest/gtest.h>
#include <utility>

namespace vexlator {

TEST(ShapefileImport, FeatureCodes) {
    const std::pair<const char*, const char*> cases[] = {
        {"C:\\d\\Water Mains 2009.shp", "2009"},
        {"/p/distribution_pipes_north.shp", "ON_PIPES_NORTH"},
        {"A B C.shp", "C"},
        {"abcdefghijklmnopq.shp", "DEFGHIJKLMNOPQ"},
        {"caf\xC3\xA9.shp", "CAF\xC3\x89"},
        {"\xC3\xA9"
         "23456789abcde.shp",
         "\xC3\x89"
         "23456789ABCDE"},
        {"ends in a blank .shp", "BLANK"},
    };
    for (auto [path, code] : cases) EXPECT_EQ(importer::frmFromSHP::mkCodeNameFromFile(path), code) << path;
}

}  // namespace vexlator
