// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/job/frmFromJOB.h"
#include "job/JobTest.h"
#include "platform/Errors.h"

namespace vexlator::importer {
namespace {

namespace fs = std::filesystem;
using Status = config::Outcome::Status;

class JobFiles : public test::JobTest {
protected:
    config::Outcome Start(const std::string& name, const std::string& list = "") {
        return frmFromJOB(run).Start(folder / ("in/" + name), folder / "out", list);
    }
    std::vector<std::string> Saved(const std::string& name) {
        drawing::Drawing drawing;
        drawing.open(folder / ("out/" + name));
        EXPECT_EQ(drawing.properties().size(), 1U);
        source = drawing.properties()[0].second;
        return test::EntityTexts(drawing);
    }
    std::string source;  ///< of the drawing that Saved() opened
    void SetUp() override { fs::create_directories(folder / "out"); }
};

TEST_F(JobFiles, GoIntoOneDrawing) {
    folder.Write("in/A.JOB", "$GIS,P,1,NONE,1,1\n$GIS,L,2,WALL(1),1,1\n");
    folder.Write("in/C.PAK", "$GIS,P,1,NONE,3,3\nCO,WALL(1),Close\n");
    folder.Write("in/D.JOB", "");
    config::Outcome outcome = Start("a.job", "B.JOB|c.pak||D.JOB|" + (folder / "in/C.PAK"));
    EXPECT_EQ(outcome.status, Status::Failed) << "D.JOB is empty";
    EXPECT_EQ(outcome.features, 4U);
    EXPECT_EQ(outcome.layers, 2U);
    // Point numbers count for each job file by itself.
    const std::string last = "VDINSERT NONE c3 (3,3,0) [default] {FOID=1}";
    EXPECT_EQ(Saved("a.VDF"), (std::vector<std::string>{
                                  "VDINSERT NONE c2 (1,1,0) [default] {FOID=1}",
                                  "VDPOLYLINE WALL c3 (1,1,0) WALL(1) closed {W=a-WALL(1)}", last, last}));
    EXPECT_EQ(source, folder / "in/a.job");
    EXPECT_EQ(ui.labels[ui.labels.size() - 2], "1 positions, 1 entities");
    EXPECT_EQ(ui.labels.back(), "Completed!");
    EXPECT_EQ(ui.messages, std::vector{folder / "in/D.JOB: holds no position of a device job to import"});
}

TEST_F(JobFiles, AddToTheDrawingThatIsThere) {
    drawing::Drawing drawing;
    drawing.properties().emplace_back("Source", "C:\\work\\W.JOB");
    drawing.addPolyline().setLabel("WALL(1)");
    drawing.setActiveLayer("REFLINE");
    drawing.addPoint({});
    drawing.saveAs(folder / "out/A.VDF");
    folder.Write("in/A.JOB", "CO,WALL(1),Close\n$GIS,P,1,NONE,1,1\n");
    EXPECT_EQ(Start("A.JOB").status, Status::Done);
    EXPECT_EQ(Saved("A.VDF"), (std::vector<std::string>{"VDPOLYLINE 0 c7  WALL(1) closed {}",
                                                        "VDINSERT NONE c4 (1,1,0) [default] {FOID=1}"}));
    EXPECT_EQ(source, "C:\\work\\W.JOB");
}

TEST_F(JobFiles, OptionsComeFromTheConfiguration) {
    folder.Write("gv.ini", "[JOB]\nRAPIDREAD=OFF\nImportQA=1\nForceClose=0\n");
    folder.Write("in/A.JOB", "$GPS,A,1,OPEN(1),,,,,1/1/1/1\n=,1,1\n$GIS,A,2,OPEN(1),5,5\n");
    Start("A.JOB");
    EXPECT_EQ(Saved("A.VDF"), (std::vector<std::string>{
                                  "VDPOLYLINE OPEN c9 (1,1,0)(5,5,0) OPEN(1) {FOID=OPEN(1)}",
                                  "VDCIRCLE $QA c9 (1,1,0) r1 "
                                  "{PtId=1;Feature=OPEN(1);NumSats=1;DOP=1;DiffMode=1;RealTimeAcc=1.000}"}));
}

TEST_F(JobFiles, TextIsWindows1252UnlessItIsUtf8OrMarked) {
    folder.Write("in/A.JOB", "\xEF\xBB\xBF DB,1,\xC3\xA9,\"a\nx$GIS\n$GIS,P,1,b\xC3\xA9,1,1\n");
    folder.Write("in/B.JOB", " DB,1,\xE9,\"b\r$GIS,P,1,b\xE9,1,1\r");
    std::string wide = "\xFE\xFF";
    for (char c : std::string(" DB,1,\xE9,\"c\nx$GIS\n$GIS,P,1,b\xE9,1,1\n"))
        wide.append(1, '\0').append(1, c);
    folder.Write("in/C.JOB", wide);
    Start("A.JOB", "|B.JOB|C.JOB");
    std::vector<std::string> wanted;
    for (const char* quoted : {"\"a", "\"b", "\"c"})
        wanted.push_back("VDINSERT B\xC3\x89 c2 (1,1,0) [default] {FIELD1=\xC3\xA9;FIELD2=" +
                         std::string(quoted) + ";FIELD3=;FIELD4=}");
    EXPECT_EQ(Saved("A.VDF"), wanted);
}

TEST_F(JobFiles, WhatCannotBeReadIsToldAndTheRestIsSaved) {
    folder.Write("in/A.JOB", "$GIS,P,1,NONE,1,1\n");
    folder.Write("in/Day.GXY", "01/02/2024 10:00:00,1,2,3\n");
    fs::create_directories(folder / "in/Day.GPX/in the way");
    EXPECT_EQ(Start("A.JOB", "|none.JOB").status, Status::Failed);
    EXPECT_EQ(Saved("A.VDF").size(), 1U);
    ASSERT_EQ(ui.messages.size(), 2U);
    EXPECT_TRUE(ui.messages[0].starts_with("Error Opening ")) << ui.messages[0];
    EXPECT_NE(ui.messages[0].find("none.JOB"), std::string::npos);
    EXPECT_NE(ui.messages[1].find("Day.GPX"), std::string::npos) << ui.messages[1];
}

TEST_F(JobFiles, DamageSavesNothing) {
    folder.Write("in/A.JOB", "PK\x03\x04 and so on");
    EXPECT_THROW(Start("A.JOB"), platform::ReadError);
    EXPECT_FALSE(fs::exists(folder / "out/A.VDF"));
    folder.Write("out/B.VDF", "no drawing");
    folder.Write("in/B.JOB", "$GIS,P,1,NONE,1,1\n");
    EXPECT_THROW(Start("B.JOB"), platform::ReadError);
    EXPECT_EQ(test::TempFolder::Read(folder / "out/B.VDF"), "no drawing");
}

}  // namespace
}  // namespace vexlator::importer
