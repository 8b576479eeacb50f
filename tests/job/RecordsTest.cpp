// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/job/JobToDrawing.h"
#include "import/job/RecordAttributes.h"
#include "import/job/SupersededRecords.h"
#include "job/JobTest.h"
#include "platform/Errors.h"

namespace vexlator::importer {
namespace {

/// What the records of one job become.
struct Case {
    const char* what;
    JobSettings settings;
    std::string job;
    std::vector<std::string> entities;
};

class JobRecords : public test::JobTest {
protected:
    std::vector<std::string> Import(const std::string& text, JobSettings settings = {}) {
        drawing::Drawing drawing;
        JobToDrawing importer(session, drawing, settings);
        JobTable table(text);
        ResolveSupersededRecords(table);
        importer.ImportRecords(table, "/jobs/J0412.JOB", *ui.ShowForm(""));
        layers = test::LayerNames(drawing);
        return test::EntityTexts(drawing);
    }
    void Check(const std::vector<Case>& cases) {
        for (const Case& c : cases) EXPECT_EQ(Import(c.job, c.settings), c.entities) << c.what;
    }

    std::vector<std::string> layers;
    JobSettings plain, quality{.importQA = true}, openAreas{.forceClose = false};
};

TEST_F(JobRecords, Points) {
    Check({
        {"own coordinates",
         plain,
         "$GIS,P,7,NONE,1.5,2,3\n",
         {"VDINSERT NONE c2 (1.5,2,3) [default] {FOID=7}"}},
        {"coordinates below go first",
         plain,
         "$GIS,P,7,NONE,9,9,9\r\n=,1,2,3\r\n",
         {"VDINSERT NONE c2 (1,2,3) [default] {FOID=7}"}},
        {"no coordinates at all",
         plain,
         "$GPS,P,7, tree \n",
         {"VDINSERT TREE c5 (0,0,0) [OAK] {ID=J0412-7}"}},
        {"x is no number",
         plain,
         "$GIS,P,7,NONE,12a.5,2\n$GIS,P,8,NONE,,2\n",
         {"VDINSERT NONE c2 (0,2,0) [default] {FOID=8}"}},
        {"an alias", plain, "$GIS,P,7,TR,1,2\n", {"VDINSERT TREE c5 (1,2,0) [OAK] {ID=J0412-7}"}},
        {"attributes above",
         plain,
         " DB,7,a, b ,\n$GIS,P,7,TREE,1,2\n",
         {"VDINSERT TREE c5 (1,2,0) [OAK] {ID=a;KIND=b;HOTLINK=}"}},
        {"attributes further above, the last of them",
         plain,
         " DB,7,old\n DB,7,new;;er\nnote\n$GIS,P,7,TREE,1,2\n DB,7,below\n",
         {"VDINSERT TREE c5 (1,2,0) [OAK] {ID=new,er;KIND=;HOTLINK=}"}},
        {"as many attributes as the widest line has values",
         plain,
         " DB,7,x,y\n$GIS,P,7,NONE,1\n",
         {"VDINSERT NONE c2 (1,0,0) [default] {FIELD1=x;FIELD2=y;FIELD3=}"}},
        {"a photograph",
         plain,
         " DB,7,1,2,sub\\a.jpg\n$GIS,P,7,TREE,1,2\n",
         {"VDINSERT TREE c5 (1,2,0) [OAK] ->/jobs/sub/a.jpg {ID=1;KIND=2;HOTLINK=sub\\a.jpg}"}},
        {"measured again",
         plain,
         "$GIS,P,a7,NONE,1,2\n$GIS,P,8,NONE,5,5\n$GIS,P,A7,NONE,3,4\n",
         {"VDINSERT NONE c2 (5,5,0) [default] {FOID=8}", "VDINSERT NONE c2 (3,4,0) [default] {FOID=A7}"}},
        {"reference points go", plain, "$GIS,P,1,REFPOINT,1,2\n$GIS,L,2,RefLine(1),1,2\n", {}},
    });
    EXPECT_EQ(layers, std::vector<std::string>{"0"});
}

TEST_F(JobRecords, Features) {
    std::string square =
        "$GIS,A,1,FENCE(1),0,0\n$GIS,A,2,FENCE(1),4,0\n$GIS,A,3,FENCE(1),4,4\n$GIS,A,4,FENCE(1),";
    Check({
        {"vertices in file order among other records",
         plain,
         "$GIS,L,1,FENCE(1),1,1\n$GIS,L,2,FENCE(10),9,9\n$GPS,L,3,FENCE(1)\n=,2,2,2\n$X,A,4,FENCE(1) "
         "\n=,3,3\n",
         {"VDPOLYLINE FENCE c255 (1,1,0)(2,2,2)(3,3,0) FENCE(1) {A=J0412-FENCE(1)}",
          "VDPOLYLINE FENCE c255 (9,9,0) FENCE(10) {A=J0412-FENCE(10)}"}},
        {"what begins with the ID belongs to it",
         plain,
         "$GIS,L,1,NO,1,1\n$GIS,P,2,NONE,2,2\n$GIS,L,3,NO(1),x,3\n",
         {"VDPOLYLINE NO c2 (1,1,0)(2,2,0)(0,3,0) NO {FOID=NO}"}},
        {"attributes of the first record in the job",
         plain,
         "$GIS,L,1,WALL(1),1,1\n DB,WALL(1),first\n DB,WALL(1),second\n",
         {"VDPOLYLINE WALL c2 (1,1,0) WALL(1) {W=first}"}},
        {"attributes directly above go first",
         plain,
         " DB,WALL(1),first\n DB,WALL(1),second\n$GIS,L,1,WALL(1),1,1\n",
         {"VDPOLYLINE WALL c2 (1,1,0) WALL(1) {W=second}"}},
        {"an area closes",
         plain,
         square + "0,4\n",
         {"VDPOLYLINE FENCE c255 (0,0,0)(4,0,0)(4,4,0)(0,4,0) FENCE(1) closed filled {A=J0412-FENCE(1)}"}},
        {"ends meet",
         openAreas,
         square + "0.005,0\n",
         {"VDPOLYLINE FENCE c255 (0,0,0)(4,0,0)(4,4,0)(0.005,0,0) FENCE(1) closed filled "
          "{A=J0412-FENCE(1)}"}},
        {"ends do not quite meet",
         openAreas,
         square + "0.01,0\n",
         {"VDPOLYLINE FENCE c255 (0,0,0)(4,0,0)(4,4,0)(0.01,0,0) FENCE(1) filled {A=J0412-FENCE(1)}"}},
        {"a style against filling",
         plain,
         "$GIS,A,1,OPEN(1),1,1\n$GIS,A,2,OPEN(1),2,2\n",
         {"VDPOLYLINE OPEN c9 (1,1,0)(2,2,0) OPEN(1) closed {FOID=OPEN(1)}"}},
        {"one vertex is no area",
         plain,
         "$GIS,A,1,OPEN(1),1,1\n",
         {"VDPOLYLINE OPEN c9 (1,1,0) OPEN(1) {FOID=OPEN(1)}"}},
        {"lines close by command only",
         plain,
         "$GIS,L,1,FENCE(1),1,1\nCO,FENCE(1),Close\n$GIS,L,2,NONE(1),1,1\nCO,NONE(1),Close\nCO,NONE(1),"
         "close\n"
         "$GIS,L,2,OPEN(1),1,1\nCO,OPEN(1),Close\n$GIS,L,2,FENCE(2),1,1\n",
         {"VDPOLYLINE FENCE c255 (1,1,0) FENCE(1) closed filled {A=J0412-FENCE(1)}",
          "VDPOLYLINE NONE c3 (1,1,0) NONE(1) closed {FOID=NONE(1)}",
          "VDPOLYLINE OPEN c9 (1,1,0) OPEN(1) closed {FOID=OPEN(1)}",
          "VDPOLYLINE FENCE c255 (1,1,0) FENCE(2) {A=J0412-FENCE(2)}"}},
        {"a command before its feature closes nothing",
         plain,
         "CO,WALL(1),Close\n$GIS,L,1,WALL(1),1,1\n",
         {"VDPOLYLINE WALL c2 (1,1,0) WALL(1) {W=J0412-WALL(1)}"}},
    });
}

TEST_F(JobRecords, EditsAndDeletions) {
    Check({
        {"the newest version takes the place",
         plain,
         "$GIS,L,1,WALL(1),1,1\n*GIS,L,2,WALL(1),2,2\n$GIS,L,3,WALL(1),3,3\n$GIS,L,2,WALL(1),7,7\n$GIS,L,2,"
         "WALL(1),8,8\n",
         {"VDPOLYLINE WALL c2 (1,1,0)(8,8,0)(3,3,0)(7,7,0) WALL(1) {W=J0412-WALL(1)}"}},
        {"with its coordinate line",
         plain,
         "*GPS,P,2,NONE\n=,1,1\n$GPS,P,2,NONE\n=,2,2\n",
         {"VDINSERT NONE c2 (2,2,0) [default] {FOID=2}"}},
        {"but without one it keeps that of the old",
         plain,
         "*GPS,P,2,NONE\n=,1,1\n$GIS,P,2,NONE,5,5\n",
         {"VDINSERT NONE c2 (1,1,0) [default] {FOID=2}"}},
        {"a number is a number",
         plain,
         "*GIS,P,02x,NONE,1,1\n$GIS,P,2,NONE,2,2\n$GIS,P,02,NONE,3,3\n",
         {"VDINSERT NONE c2 (2,2,0) [default] {FOID=2}", "VDINSERT NONE c2 (3,3,0) [default] {FOID=02}"}},
        {"two edits of one record take two versions",
         plain,
         "*GIS,L,2,WALL(1),0,0\n*GIS,L,2,WALL(1),1,1\n$GIS,L,2,WALL(1),2,2\n$GIS,L,2,WALL(1),3,3\n",
         {"VDPOLYLINE WALL c2 (3,3,0)(2,2,0) WALL(1) {W=J0412-WALL(1)}"}},
        {"deleted, with what belonged to it",
         plain,
         " DB,2,x\n*GPS,P,2,NONE\n=,1,1\n$GPS,P,3,NONE\n DB,W,y\n*GPS,L,4,WALL(1)\n$GIS,L,5,W,6,6\n",
         {"VDINSERT NONE c2 (0,0,0) [default] {FOID=3}",
          "VDPOLYLINE W c3 (6,6,0) W {FIELD1=y;FIELD2=;FIELD3=;FIELD4=}"}},
        {"an older version is not the newest",
         plain,
         "$GIS,P,2,NONE,1,1\n*GIS,P,2,NONE,2,2\n",
         {"VDINSERT NONE c2 (1,1,0) [default] {FOID=2}"}},
    });
}

TEST_F(JobRecords, QualityMarkers) {
    std::string insert = "VDINSERT NONE c3 (1,2,3) [default] {FOID=7}";
    auto job = [](const std::string& text) { return "$GPS,P,7,NONE,,,,," + text + "\n=,1,2,3\n"; };
    std::string start = "VDCIRCLE $QA c3 (1,2,3) r",
                names = " {PtId=7;Feature=NONE;NumSats=12;DOP=1.4;DiffMode=2;";
    Check({
        {"post-processed",
         quality,
         job("12/1.4/2/0.020[0.012]"),
         {insert, start + "0.012" + names + "RealTimeAcc=0.020;PostProAcc=0.012}"}},
        {"real time",
         quality,
         job("12/1.4/2/0.0205"),
         {insert, start + "0.0205" + names + "RealTimeAcc=0.021}"}},
        {"brackets hold nothing",
         quality,
         job("12/1.4/2/0.02[]"),
         {insert, start + "0" + names + "RealTimeAcc=0.020}"}},
        {"a part is missing", quality, job("12/1.4/0.020"), {insert}},
        {"a part too many", quality, job("12/1.4/2/0.020/1"), {insert}},
        {"not measured by GPS", quality, "$GIS,P,7,NONE,1,2,3,,12/1.4/2/0.020\n", {insert}},
        {"not asked for", plain, job("12/1.4/2/0.020"), {"VDINSERT NONE c2 (1,2,3) [default] {FOID=7}"}},
        {"of vertices",
         quality,
         "$GPS,L,1,WALL(1),,,,,1/1/1/1\n=,1,1\n$GIS,L,2,WALL(1),2,2\n$GPS,L,3,WALL(1),,,,,3/3/3/3\n=,3,3\n",
         {"VDPOLYLINE WALL c3 (1,1,0)(2,2,0)(3,3,0) WALL(1) {W=J0412-WALL(1)}",
          "VDCIRCLE $QA c3 (1,1,0) r1 {PtId=1;Feature=WALL(1);NumSats=1;DOP=1;DiffMode=1;RealTimeAcc=1.000}",
          "VDCIRCLE $QA c3 (3,3,0) r3 "
          "{PtId=3;Feature=WALL(1);NumSats=3;DOP=3;DiffMode=3;RealTimeAcc=3.000}"}},
    });
}

TEST_F(JobRecords, ALineOfVeryManyFieldsIsAnErrorWhenFeaturesWouldTakeThemOver) {
    std::string points;
    for (int i = 0; i < 2000; ++i)
        points += " DB," + std::to_string(i) + ",x\n$GIS,P," + std::to_string(i) + ",NONE,1,1\n";
    std::string wide = "note" + std::string(40000, ',') + "\n";
    EXPECT_EQ(Import("note" + std::string(40000, ',') + "\n$GIS,P,1,NONE,1,1\n").size(), 1U);
    for (const std::string& job : {points + wide, points + "x" + std::string(1 << 20, ',') + "\n"}) {
        try {
            Import(job);
            FAIL();
        } catch (const platform::ReadError& error) {
            EXPECT_EQ(error.Place(), "line 4001");
        }
    }
}

}  // namespace
}  // namespace vexlator::importer
