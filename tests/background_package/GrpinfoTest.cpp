// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Support.h"
#include "support/Processes.h"

#include <gtest/gtest.h>

using namespace vexlator;
using namespace vexlator::background;
using namespace vexlator::test;

namespace {

ShellResult Grpinfo(const TempFolder& folder, const std::string& arguments) {
    return RunShell(folder, GRPINFO_PROGRAM " " + arguments);
}

bool Has(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
}

}  // namespace

TEST(Grpinfo, TellsPrintsAndDrawsAPackage) {
    Build build;
    WriteExample(build.writer);
    ShellResult text = Grpinfo(build.folder, build.file);
    EXPECT_EQ(text.status, 0) << text.err;
    EXPECT_TRUE(Has(text.out, "extents        523450.000 181230.000 to 523470.000 181240.500\n"));
    EXPECT_TRUE(Has(text.out, "areas          1\n"));

    ShellResult json = Grpinfo(build.folder, "--json " + build.file);
    EXPECT_TRUE(Has(json.out, R"("extents":[523450,181230,523470,181240.5],"packages":0,"tiles":3)"));
    EXPECT_TRUE(Has(json.out, R"({"name":"209300724A.PMM","kind":5,"box":[523450,181230,523460,181240.5]})"));

    ShellResult geo = Grpinfo(build.folder, build.file + " --geojson");
    EXPECT_TRUE(Has(geo.out, R"("Polygon","coordinates":[[[523450,181230],[523460,181230],)"
                             R"([523460,181240.5],[523450,181230]]])"));
    EXPECT_TRUE(Has(geo.out, R"("text":"Mill","height":2.5,"rotation":0)"));

    ShellResult svg = Grpinfo(build.folder, "--svg " + (build.folder / "map.svg") + " " + build.file);
    EXPECT_EQ(svg.status, 0) << svg.err;
    std::string picture = TempFolder::Read(build.folder / "map.svg");
    EXPECT_TRUE(Has(picture, R"(d="M0.00 10.50L10.00 10.50L10.00 0.00L0.00 10.50Z"/>)")) << picture;
    EXPECT_TRUE(Has(picture, ">Mill</text>"));
    EXPECT_TRUE(Has(picture, R"( width="1000.00" height="543.27" viewBox="-0.40 -0.40 20.80 11.30")"))
        << picture;
}

TEST(Grpinfo, DamageEndsWithPlaceAndStatusOne) {
    Build build;
    WriteExample(build.writer);
    std::filesystem::resize_file(build.folder / "MAP.BAG", 300);
    for (const char* option : {"", "--json ", "--geojson ", "--svg /dev/null "}) {
        ShellResult result = Grpinfo(build.folder, option + build.file);
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.out, "");
        EXPECT_TRUE(result.err.starts_with("grpinfo: " + (build.folder / "MAP.BAG") + ": byte "))
            << result.err;
    }
    EXPECT_EQ(Grpinfo(build.folder, build.folder / "NONE.GRP").status, 1);
    for (const char* wrong : {"", "--svg", "--json --geojson a", "a b"})
        EXPECT_EQ(Grpinfo(build.folder, wrong).status, 2) << wrong;
}
