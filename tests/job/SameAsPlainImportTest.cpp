// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/job/JobToDrawing.h"
#include "import/job/SupersededRecords.h"
#include "job/JobTest.h"
#include "job/PlainImport.h"

#include <random>

namespace vexlator::importer {
namespace {

/// Small jobs in which everything meets everything: few numbers, few codes, many of them alike.
class RandomJob {
public:
    explicit RandomJob(unsigned seed) : random_(seed), tidy_(seed % 2 == 0) {}

    std::string Text() {
        std::string text;
        for (int records = Below(30); records > 0; --records) text += tidy_ ? Survey() : Junk();
        return text;
    }
    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

private:
    std::string Pick(std::initializer_list<const char*> texts) {
        return texts.begin()[Below(static_cast<int>(texts.size()))];
    }
    std::string Number() { return Pick({"1", "2", "3", "4", "a", "A", "01", "", "1.5", "-7", "2x"}); }
    std::string What() {
        return Pick({"FENCE(1)", "FENCE(1)", "FENCE(10)",  "FENCE(2)", "FENCE(1) ", " FENCE(1)",
                     "fence(1)", "FENCE",    "FEN",        "",         "OPEN(1)",   "OPEN(2)",
                     "WALL(1)",  "NONE(1)",  "REFLINE(1)", "REFPOINT", "TREE",      "TREE",
                     "tree",     "TR",       "TR(1)",      "$QA",      "0",         "TREE(1)"});
    }
    std::string Type() { return Pick({"P", "P", "A", "A", "L", "", " A ", "p", " P"}); }
    std::string Coordinate() {
        return Pick({"0", "1", "1.005", "2", "3.5", "-4", "", "12a", "1-2", "1e2", "100.009"});
    }
    std::string Quality() {
        return Pick({"", "12/1.4/2/0.020", "12/1.4/2/0.020[0.012]", "12/1.4/0.020", "9/1/1/0.5[0]",
                     "a/b/c/d/e", "1/2/3/0]1[2[3]/4", "///", "////[1"});
    }
    std::string Value() { return Pick({"", "x", " y ", "a;;b", ";;;", "p.jpg", ";"}); }

    std::string Survey() {
        std::string mark = Pick({"$", "$", "$", "*"}), kind = Pick({"GIS", "GPS", "GPS", "OBS"}),
                    type = Type(), number = Number(), what = What();
        std::string text;
        if (Below(3) > 0)
            text += " DB," + (type == "P" ? number : what) + "," + Value() + "," + Value() + "\n";
        text += mark + kind + "," + type + "," + number + "," + what + "," + Coordinate() + "," +
                Coordinate() + ",1,," + Quality() + "\n";
        if (Below(4) > 0) text += "=," + Coordinate() + "," + Coordinate() + "," + Coordinate() + "\n";
        if (Below(6) == 0) text += "CO," + What() + ",Close\n";
        return text;
    }
    std::string Junk() {
        std::string text = Pick(
            {"$GIS", "$GPS", "$", "$X", "=", "=a", " DB", " DB", "DB", "*", "*GIS", "CO", "CO", "", "note"});
        for (int fields = Below(10); fields > 0; --fields) {
            std::string any[] = {Number(),  What(),  Type(),  Coordinate(),
                                 Quality(), Value(), "Close", "Close"};
            text += "," + any[Below(8)];
        }
        return text + "\n";
    }

    std::mt19937 random_;
    bool tidy_;
};

class SameAsPlainImport : public test::JobTest {
protected:
    void Prepare(test::PlainImport& plain) {
        plain.templates = {{"TREE", {"0,OAK,5", {"ID", "KIND", "HOTLINK"}}},
                           {"FENCE", {"0,2,255,", {"A", "B", "C"}}},
                           {"OPEN", {"0,-1,9", {}}},
                           {"WALL", {"", {"W"}}}};
        plain.aliases = {{"TR", "TREE"}};
        plain.symbols = {{"OAK", "OAK"}, {"", "default"}};
    }
    static void FillWithEarlierWork(drawing::Drawing& drawing) {
        drawing.setActiveLayer("FENCE");
        drawing.addPolyline().setLabel("FENCE(1)");
        drawing.addPolyline();
        drawing.addText({}, "t", 1, 0).setLabel("FENCE(1)");
        drawing.setActiveLayer("REFLINE");
        drawing.addPoint({});
    }
};

TEST_F(SameAsPlainImport, OnRandomJobs) {
    auto view = ui.ShowForm("");
    for (unsigned seed = 0; seed < 6000; ++seed) {
        RandomJob job(seed);
        drawing::Drawing ours, theirs;
        if (seed % 5 == 0) {
            FillWithEarlierWork(ours);
            FillWithEarlierWork(theirs);
        }
        JobSettings settings{job.Below(2) == 0, job.Below(2) == 0};
        JobToDrawing importer(run, ours, settings);
        test::PlainImport plain(theirs);
        Prepare(plain);
        plain.settings = settings;
        std::string texts;
        for (int files = 1 + job.Below(2); files > 0; --files) {
            std::string text = job.Text();
            JobTable table(text);
            ResolveSupersededRecords(table);
            JobCounts counts = importer.ImportRecords(table, "/j/J0412.JOB", *view);
            plain.ImportJobFile(text);
            texts += text + "--\n";
            ASSERT_EQ(counts.leftOut, plain.leftOut) << texts;
        }
        std::vector<std::string> got = test::EntityTexts(ours), wanted = test::EntityTexts(theirs);
        got.resize(std::max(got.size(), wanted.size()));
        wanted.resize(got.size());
        for (std::size_t i = 0; i < got.size(); ++i)
            ASSERT_EQ(got[i], wanted[i]) << "entity " << i << ", seed " << seed << "\n" << texts;
        ASSERT_EQ(test::LayerNames(ours), test::LayerNames(theirs)) << "seed " << seed << "\n" << texts;
    }
}

}  // namespace
}  // namespace vexlator::importer
