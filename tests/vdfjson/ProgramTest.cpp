// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Json.h"
#include "support/Processes.h"
#include "util/Text.h"

#include <gtest/gtest.h>

namespace vexlator::test {

namespace {

class VdfJsonProgram : public ::testing::Test {
protected:
    /// Runs a command of the shell with the program as $V, in the test's folder.
    ShellResult Shell(const std::string& command) {
        return RunShell(folder_, "V='" VDFJSON_PROGRAM "'; " + command);
    }

    TempFolder folder_;
};

constexpr std::string_view point =
    R"(
  {"type":"Feature","id":"1","geometry":{"type":"Point","coordinates":[1,2,0]},"properties":{"N":"v"},"vdf":{"kind":"VDPOINT",)"
    R"("layer":"0","colour":7,"lineType":"","lineWeight":0,"label":"","hyperlink":"","position":[1,2,0],"xproperties":[["N","v"]]}})";

TEST_F(VdfJsonProgram, TheFileNamesTheLayerOfPlainFeatures) {
    folder_.Write("FENCE.geojson", R"({"type":"Point","coordinates":[1,2]})");
    EXPECT_NE(Shell("$V load FENCE.geojson a.VDF && $V dump a.VDF").out.find(R"("layer":"FENCE")"),
              std::string::npos);
    EXPECT_NE(Shell("$V load - WALL.VDF < FENCE.geojson && $V dump WALL.VDF").out.find(R"("layer":"WALL")"),
              std::string::npos);
}

TEST_F(VdfJsonProgram, AFailureLeavesTheOldDrawing) {
    folder_.Write("bad.json", "{\"features\":[{},{}");
    folder_.Write("a.VDF", "old");
    ShellResult result = Shell("$V load bad.json a.VDF");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "vdfjson: bad.json: byte 12: the text ends inside the value that begins here\n");
    EXPECT_EQ(TempFolder::Read(folder_ / "a.VDF"), "old");
    EXPECT_EQ(Shell("$V load - a.VDF < bad.json").err,
              "vdfjson: standard input: byte 12: the text ends inside the value that begins here\n");
    EXPECT_EQ(Shell("$V load none.json a.VDF").status, 1);
    EXPECT_EQ(Shell("$V dump none.VDF").status, 1);
    ShellResult damaged = Shell("$V dump a.VDF");
    EXPECT_EQ(damaged.status, 1);
    EXPECT_NE(damaged.err.find("a.VDF: "), std::string::npos) << damaged.err;
    folder_.Write("good.json", Document(point));
    ShellResult noFolder = Shell("$V load good.json none/a.VDF");
    EXPECT_EQ(noFolder.status, 1);
    EXPECT_NE(noFolder.err.find("vdfjson: none/a.VDF: "), std::string::npos) << noFolder.err;
}

TEST_F(VdfJsonProgram, TellsHowItIsUsed) {
    EXPECT_EQ(Shell("$V --version").out.find("vdfjson "), 0U);
    EXPECT_EQ(Shell("$V --help").status, 0);
    for (const char* wrong : {"$V", "$V dump", "$V dump a b", "$V load a", "$V copy a b", "$V --help x"}) {
        ShellResult result = Shell(wrong);
        EXPECT_EQ(result.status, 2) << wrong;
        EXPECT_EQ(result.out, "") << wrong;
        EXPECT_EQ(result.err.find("usage: "), 0U) << wrong;
    }
}

TEST_F(VdfJsonProgram, OutputThatNobodyTakesEndsTheDump) {
    std::string features;
    for (int i = 0; i < 20000; ++i) features.append(i ? "," : "").append(point);
    folder_.Write("in.json", Document(features));
    ASSERT_EQ(Shell("$V load in.json a.VDF").status, 0);
    ShellResult closed = Shell("{ timeout 20 $V dump a.VDF; echo $? > status; } | head -c 10");
    EXPECT_EQ(closed.err, "");
    EXPECT_EQ(TempFolder::Read(folder_ / "status"), "1\n");
    ShellResult full = Shell("$V dump a.VDF > /dev/full");
    EXPECT_EQ(full.status, 1);
    EXPECT_EQ(full.err, "vdfjson: standard output: No space left on device\n");
}

TEST_F(VdfJsonProgram, GdalReadsADumpAsGeoJson) {
    std::string features =
        R"({"vdf":{"position":[400000,300000,5],"xproperties":[["NAME","p"],["NAME","twice"]]}},
        {"vdf":{"kind":"VDPOLYLINE","vertices":[[0,0],[10,0],[10,10]],"xproperties":[["NAME","l"]]}},
        {"vdf":{"kind":"VDPOLYLINE","closed":true,"vertices":[[0,0],[10,0],[10,10]],"xproperties":[["KIND","a"]]}},
        {"vdf":{"kind":"VDPOLYLINE","closed":true,"vertices":[[0,0],[10,0]]}},{"vdf":{"kind":"VDPOLYLINE"}},
        {"vdf":{"kind":"VDINSERT"}},{"vdf":{"kind":"VDTEXT","text":"t"}},{"vdf":{"kind":"VDHATCH","vertices":[[1,2]]}})";
    folder_.Write("in.json", "{\"features\":[" + features + "]}");
    ShellResult result =
        Shell("$V load in.json a.VDF && $V dump a.VDF > dump.geojson && ogrinfo -ro -al dump.geojson");
    EXPECT_EQ(result.status, 0) << result.err;
    auto occurs = [&](std::string_view text) { return util::CountOf(result.out, text); };
    const std::pair<std::string_view, std::size_t> expected[] = {
        {"using driver `GeoJSON'", 1},
        {"Feature Count: 8\n", 1},
        {"  POINT Z (", 3},
        {"  LINESTRING Z (", 2},
        {"  POLYGON Z ((0 0 0,10 0 0,10 10 0,0 0 0))", 1},
        {"  NAME (String) = p\n", 1},
    };
    for (const auto& [text, count] : expected) EXPECT_EQ(occurs(text), count) << text << result.out;
    EXPECT_EQ(result.err, "");
}

}  // namespace

}  // namespace vexlator::test
