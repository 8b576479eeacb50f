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
    std::string source;  ///< from the drawing that Saved() opened
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
    // Each job file has its own point numbers.
    const std::string last = "VDINSERT NONE c3 (3,3,0) [default] {FOID=1}";
    EXPECT_EQ(Saved("a.VDF"), (std::vector<std::string>{
                                  "VDINSERT NONE c2 (1,1,0) [default] {FOID=1}",
                                  "VDPOLYLINE WALL c3 (1,1,0) WALL(1) closed {W=a-WALL(1)}", last, last}));
    EXPECT_EQ(source, folder / "in/a.job");
    EXPECT_EQ(ui.labels[ui.labels.size() - 2], "1 positions, 1 entities");
    EXPECT_EQ(ui.labels.back(), "Completed!");
    EXPECT_EQ(ui.messages, std::vector{folder / "in/D.JOB: contains no position of a device job to import"});
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
