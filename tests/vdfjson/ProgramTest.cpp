// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Json.h"
#include "support/TempFolder.h"
#include "util/Text.h"

#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace vexlator::test {

namespace {

class VdfJsonProgram : public ::testing::Test {
protected:
    struct Result {
        int status;
        std::string output, errors;
    };

    /// Runs a command of the shell in which $V is the program, in the test's folder.
    Result Shell(const std::string& command) {
        std::string line = "cd '" + folder_.Path() + "' && V='" VDFJSON_PROGRAM "' && { " + command +
                           "; } > stdout.txt 2> stderr.txt < /dev/null";
        int status = std::system(line.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, TempFolder::Read(folder_ / "stdout.txt"),
                TempFolder::Read(folder_ / "stderr.txt")};
    }

    TempFolder folder_;
};

constexpr std::string_view point =
    R"(
  {"type":"Feature","id":"1","geometry":{"type":"Point","coordinates":[1,2,0]},"properties":{"N":"v"},"vdf":{"kind":"VDPOINT",)"
    R"("layer":"0","colour":7,"lineType":"","lineWeight":0,"label":"","hyperlink":"","position":[1,2,0],"xproperties":[["N","v"]]}})";

TEST_F(VdfJsonProgram, LoadsAndDumps) {
    std::string document = Document(point);
    folder_.Write("in.json", document);
    EXPECT_EQ(Shell("$V load in.json a.VDF").status, 0);
    Result dump = Shell("$V dump a.VDF");
    EXPECT_EQ(dump.status, 0);
    EXPECT_EQ(dump.output, document);
    EXPECT_EQ(dump.errors, "");
    EXPECT_EQ(Shell("$V dump a.VDF | $V load - b.VDF && cmp a.VDF b.VDF").status, 0);
}

TEST_F(VdfJsonProgram, TheFileNamesTheLayerOfPlainFeatures) {
    folder_.Write("FENCE.geojson", R"({"type":"Point","coordinates":[1,2]})");
    EXPECT_NE(Shell("$V load FENCE.geojson a.VDF && $V dump a.VDF").output.find(R"("layer":"FENCE")"),
              std::string::npos);
    EXPECT_NE(
        Shell("$V load - WALL.VDF < FENCE.geojson && $V dump WALL.VDF").output.find(R"("layer":"WALL")"),
        std::string::npos);
}

TEST_F(VdfJsonProgram, AFailureLeavesTheOldDrawing) {
    folder_.Write("bad.json", "{\"features\":[{},{}");
    folder_.Write("a.VDF", "old");
    Result result = Shell("$V load bad.json a.VDF");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "vdfjson: bad.json: byte 12: the text ends inside the value that begins here\n");
    EXPECT_EQ(TempFolder::Read(folder_ / "a.VDF"), "old");
    EXPECT_EQ(Shell("$V load - a.VDF < bad.json").errors,
              "vdfjson: standard input: byte 12: the text ends inside the value that begins here\n");
    EXPECT_EQ(Shell("$V load none.json a.VDF").status, 1);
    EXPECT_EQ(Shell("$V dump none.VDF").status, 1);
    Result damaged = Shell("$V dump a.VDF");
    EXPECT_EQ(damaged.status, 1);
    EXPECT_NE(damaged.errors.find("a.VDF: "), std::string::npos) << damaged.errors;
    folder_.Write("good.json", Document(point));
    Result noFolder = Shell("$V load good.json none/a.VDF");
    EXPECT_EQ(noFolder.status, 1);
    EXPECT_NE(noFolder.errors.find("vdfjson: none/a.VDF: "), std::string::npos) << noFolder.errors;
}

TEST_F(VdfJsonProgram, TellsHowItIsUsed) {
    EXPECT_EQ(Shell("$V --version").output.find("vdfjson "), 0U);
    EXPECT_EQ(Shell("$V --help").status, 0);
    for (const char* wrong : {"$V", "$V dump", "$V dump a b", "$V load a", "$V copy a b", "$V --help x"}) {
        Result result = Shell(wrong);
        EXPECT_EQ(result.status, 2) << wrong;
        EXPECT_EQ(result.output, "") << wrong;
        EXPECT_EQ(result.errors.find("usage: "), 0U) << wrong;
    }
}

TEST_F(VdfJsonProgram, OutputThatNobodyTakesEndsTheDump) {
    std::string features;
    for (int i = 0; i < 20000; ++i) features.append(i ? "," : "").append(point);
    folder_.Write("in.json", Document(features));
    ASSERT_EQ(Shell("$V load in.json a.VDF").status, 0);
    Result closed = Shell("{ timeout 20 $V dump a.VDF; echo $? > status; } | head -c 10");
    EXPECT_EQ(closed.errors, "");
    EXPECT_EQ(TempFolder::Read(folder_ / "status"), "1\n");
    Result full = Shell("$V dump a.VDF > /dev/full");
    EXPECT_EQ(full.status, 1);
    EXPECT_EQ(full.errors, "vdfjson: standard output: No space left on device\n");
}

TEST_F(VdfJsonProgram, GdalReadsADumpAsGeoJson) {
    std::string features =
        R"({"vdf":{"position":[400000,300000,5],"xproperties":[["NAME","p"],["NAME","twice"]]}},
        {"vdf":{"kind":"VDPOLYLINE","vertices":[[0,0],[10,0],[10,10]],"xproperties":[["NAME","l"]]}},
        {"vdf":{"kind":"VDPOLYLINE","closed":true,"vertices":[[0,0],[10,0],[10,10]],"xproperties":[["KIND","a"]]}},
        {"vdf":{"kind":"VDPOLYLINE","closed":true,"vertices":[[0,0],[10,0]]}},{"vdf":{"kind":"VDPOLYLINE"}},
        {"vdf":{"kind":"VDINSERT"}},{"vdf":{"kind":"VDTEXT","text":"t"}},{"vdf":{"kind":"VDHATCH","vertices":[[1,2]]}})";
    folder_.Write("in.json", "{\"features\":[" + features + "]}");
    Result result =
        Shell("$V load in.json a.VDF && $V dump a.VDF > dump.geojson && ogrinfo -ro -al dump.geojson");
    EXPECT_EQ(result.status, 0) << result.errors;
    auto occurs = [&](std::string_view text) { return util::CountOf(result.output, text); };
    const std::pair<std::string_view, std::size_t> expected[] = {
        {"using driver `GeoJSON'", 1},
        {"Feature Count: 8\n", 1},
        {"  POINT Z (", 3},
        {"  LINESTRING Z (", 2},
        {"  POLYGON Z ((0 0 0,10 0 0,10 10 0,0 0 0))", 1},
        {"  NAME (String) = p\n", 1},
    };
    for (const auto& [text, count] : expected) EXPECT_EQ(occurs(text), count) << text << result.output;
    EXPECT_EQ(result.errors, "");
}

}  // namespace

}  // namespace vexlator::test
