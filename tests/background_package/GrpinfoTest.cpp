// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Support.h"
#include "grpinfo/GeoJson.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/wait.h>

using namespace vexlator;
using namespace vexlator::background;
using namespace vexlator::test;

namespace {

struct Result {
    int status;
    std::string output, errors;
};

Result Grpinfo(const TempFolder& folder, const std::string& arguments) {
    std::string command =
        std::string(GRPINFO_PROGRAM " ") + arguments + " >" + (folder / "out") + " 2>" + (folder / "err");
    int status = std::system(command.c_str());
    return {WEXITSTATUS(status), TempFolder::Read(folder / "out"), TempFolder::Read(folder / "err")};
}

bool Has(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
}

}  // namespace

TEST(Grpinfo, TellsPrintsAndDrawsAPackage) {
    Build build;
    WriteExample(build.writer);
    Result text = Grpinfo(build.folder, build.file);
    EXPECT_EQ(text.status, 0) << text.errors;
    EXPECT_TRUE(Has(text.output, "extents        523450.000 181230.000 to 523470.000 181240.500\n"));
    EXPECT_TRUE(Has(text.output, "areas          1\n"));

    Result json = Grpinfo(build.folder, "--json " + build.file);
    EXPECT_TRUE(Has(json.output, R"("extents":[523450,181230,523470,181240.5],"packages":0,"tiles":3)"));
    EXPECT_TRUE(
        Has(json.output, R"({"name":"209300724A.PMM","kind":5,"box":[523450,181230,523460,181240.5]})"));

    Result geo = Grpinfo(build.folder, build.file + " --geojson");
    EXPECT_TRUE(Has(geo.output, R"("Polygon","coordinates":[[[523450,181230],[523460,181230],)"
                                R"([523460,181240.5],[523450,181230]]])"));
    EXPECT_TRUE(Has(geo.output, R"("text":"Mill","height":2.5,"rotation":0)"));

    Result svg = Grpinfo(build.folder, "--svg " + (build.folder / "map.svg") + " " + build.file);
    EXPECT_EQ(svg.status, 0) << svg.errors;
    std::string picture = TempFolder::Read(build.folder / "map.svg");
    EXPECT_TRUE(Has(picture, R"(d="M0.00 10.50L10.00 10.50L10.00 0.00L0.00 10.50Z"/>)")) << picture;
    EXPECT_TRUE(Has(picture, ">Mill</text>"));
}

TEST(Grpinfo, DamageEndsWithPlaceAndStatusOne) {
    Build build;
    WriteExample(build.writer);
    std::filesystem::resize_file(build.folder / "MAP.BAG", 300);
    for (const char* option : {"", "--json ", "--geojson ", "--svg /dev/null "}) {
        Result result = Grpinfo(build.folder, option + build.file);
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.output, "");
        EXPECT_TRUE(result.errors.starts_with("grpinfo: " + (build.folder / "MAP.BAG") + ": byte "))
            << result.errors;
    }
    EXPECT_EQ(Grpinfo(build.folder, build.folder / "NONE.GRP").status, 1);
    for (const char* wrong : {"", "--svg", "--json --geojson a", "a b"})
        EXPECT_EQ(Grpinfo(build.folder, wrong).status, 2) << wrong;
}
