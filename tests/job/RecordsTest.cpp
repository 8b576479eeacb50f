// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/job/SupersededRecords.h"
#include "import/job/JobToDrawing.h"
#include "import/job/RecordAttributes.h"
#include "job/JobTest.h"
#include "support/Errors.h"

namespace vexlator::importer {

using namespace formats;

namespace {

class JobRecords : public test::JobTest {
protected:
    std::vector<std::string> Import(const std::string& text, JobSettings settings = {}) {
        drawing::Drawing drawing;
        JobToDrawing importer(run, drawing, settings);
        JobTable table(text);
        ResolveSupersededRecords(table);
        importer.ImportRecords(table, "/jobs/J0412.JOB", *ui.ShowForm(""));
        return test::EntityTexts(drawing);
    }
};

/// Some rules by example; random jobs hold every combination of them.
TEST_F(JobRecords, BecomeEntities) {
    const JobSettings plain, quality{.importQA = true}, openAreas{.forceClose = false};
    const std::string triangle = "$GIS,A,1,FENCE(1),0,0\n$GIS,A,2,FENCE(1),4,0\n$GIS,A,3,FENCE(1),",
                      area = "VDPOLYLINE FENCE c255 (0,0,0)(4,0,0)",
                      point = "VDINSERT NONE c3 (1,2,3) [default] {FOID=7}",
                      grid = "$GIS,A,1,FENCE(1),400000.01,0\n$GIS,A,2,FENCE(1),400004,0\n",
                      names = "{PtId=7;Feature=NONE;NumSats=12;DOP=1.4;DiffMode=2;";
    struct Case {
        std::string job;
        std::vector<std::string> entities;
        JobSettings settings;
    };
    const Case cases[] = {
        {" DB,7,1, b ,sub\\a.jpg\n$GIS,P,7, tr ,9,9,9\r\n=,1,2,3\r\n",
         {"VDINSERT TREE c5 (1,2,3) [OAK] ->/jobs/sub/a.jpg {ID=1;KIND=b;HOTLINK=sub\\a.jpg}"},
         plain},
        {triangle + "0,0.009\n", {area + "(0,0.009,0) FENCE(1) closed filled {A=J0412-FENCE(1)}"}, openAreas},
        {triangle + "0,0.01\n", {area + "(0,0.01,0) FENCE(1) filled {A=J0412-FENCE(1)}"}, openAreas},
        {grid + "$GIS,A,3,FENCE(1),400000.02,0\n",
         {"VDPOLYLINE FENCE c255 (400000.01,0,0)(400004,0,0)(400000.02,0,0) FENCE(1) filled "
          "{A=J0412-FENCE(1)}"},
         openAreas},
        {"$GPS,P,7,NONE,,,,,12/1.4/2/0.020[0.012]\n=,1,2,3\n",
         {point, "VDCIRCLE $QA c3 (1,2,3) r0.012 " + names + "RealTimeAcc=0.020;PostProAcc=0.012}"},
         quality},
    };
    for (const Case& c : cases) EXPECT_EQ(Import(c.job, c.settings), c.entities) << c.job;
}

TEST_F(JobRecords, ALineOfVeryManyFieldsIsAnErrorWhenFeaturesWouldTakeThemOver) {
    std::string points;
    for (int i = 0; i < 2000; ++i)
        points += " DB," + std::to_string(i) + ",x\n$GIS,P," + std::to_string(i) + ",NONE,1,1\n";
    std::string wide = "note" + std::string(40000, ',') + "\n";
    EXPECT_EQ(Import("note" + std::string(40000, ',') + "\n$GIS,P,1,NONE,1,1\n").size(), 1U);
    for (const std::string& job : {points + wide, points + "x" + std::string(1 << 20, ',') + "\n"}) {
        EXPECT_TRUE(test::ErrorOf([&] { Import(job); }).starts_with("line 4001: "));
    }
}

}  // namespace
}  // namespace vexlator::importer
