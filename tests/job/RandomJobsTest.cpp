// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/job/SupersededRecords.h"
#include "import/job/JobToDrawing.h"
#include "job/JobTest.h"

#include <random>
#include <xxhash.h>

namespace vexlator::importer {

using namespace formats;

namespace {

/// Small jobs with all combinations: few numbers, few codes, many of them equal.
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
        std::string record = Pick({"$", "$", "$", "*"});
        record += Pick({"GIS", "GPS", "GPS", "OBS"});
        const std::string type = Type(), number = Number(), what = What();
        std::string text;
        if (Below(3) > 0) text = Line({" DB", type == "P" ? number : what, Value(), Value()});
        text += Line({record, type, number, what, Coordinate(), Coordinate(), "1", "", Quality()});
        if (Below(4) > 0) text += Line({"=", Coordinate(), Coordinate(), Coordinate()});
        if (Below(6) == 0) text += Line({"CO", What(), "Close"});
        return text;
    }
    std::string Junk() {
        std::vector<std::string> fields = {Pick(
            {"$GIS", "$GPS", "$", "$X", "=", "=a", " DB", " DB", "DB", "*", "*GIS", "CO", "CO", "", "note"})};
        for (int left = Below(10); left > 0; --left) {
            const std::string any[] = {Number(),  What(),  Type(),  Coordinate(),
                                       Quality(), Value(), "Close", "Close"};
            fields.push_back(any[Below(8)]);
        }
        return Line(fields);
    }
    /// Braces, unlike operators, keep the order of the random numbers.
    static std::string Line(const std::vector<std::string>& fields) {
        std::string line;
        for (const std::string& field : fields) line += (line.empty() ? "" : ",") + field;
        return line + "\n";
    }

    std::mt19937 random_;
    bool tidy_;
};

class RandomJobs : public test::JobTest {
protected:
    static void FillWithEarlierWork(drawing::Drawing& drawing) {
        drawing.setActiveLayer("FENCE");
        drawing.addPolyline().setLabel("FENCE(1)");
        drawing.addPolyline();
        drawing.addText({}, "t", 1, 0).setLabel("FENCE(1)");
        drawing.setActiveLayer("REFLINE");
        drawing.addPoint({});
    }
    /// The drawing of one or two jobs, as text.
    std::string Import(unsigned seed) {
        RandomJob job(seed);
        drawing::Drawing drawing;
        if (seed % 5 == 0) FillWithEarlierWork(drawing);
        JobSettings settings;
        settings.importQA = job.Below(2) == 0;
        settings.forceClose = job.Below(2) == 0;
        JobToDrawing importer(run, drawing, settings);
        std::string made;
        for (int files = 1 + job.Below(2); files > 0; --files) {
            std::string text = job.Text();
            JobTable table(text);
            ResolveSupersededRecords(table);
            made += std::to_string(importer.ImportRecords(table, "/j/J0412.JOB", *view_).leftOut) + "\n";
        }
        for (const std::string& entity : test::EntityTexts(drawing)) made += entity + "\n";
        for (const std::string& layer : test::LayerNames(drawing)) made += layer + "\n";
        return made;
    }

private:
    std::unique_ptr<ui::FormView> view_ = ui.ShowForm("");
};

/// The drawing of a job must change only on purpose. The digests were taken when a second importer, which
/// searched a plain table for every rule, made the same drawings. Take them anew for an intended change.
TEST_F(RandomJobs, BecomeWhatTheyAlwaysDid) {
    constexpr unsigned seedsEach = 250;
    const std::uint64_t digests[] = {0x55257de7696e3ef0, 0x59f8de9a6ba0ceb2, 0xc57736696c6f026d,
                                     0xbe67174a2a4a39f5, 0x78862cb5be563605, 0x30bf5cb42484e610,
                                     0xdc5d66a976d7aa3b, 0xc1b3dbff80b66980, 0x8e4ad0edb3a85f0b,
                                     0x0c36a11f412266fa, 0x842154e5efe34ebb, 0x5cd97c6d6720deae};
    unsigned seed = 0;
    for (std::uint64_t digest : digests) {
        std::string made;
        for (unsigned i = 0; i < seedsEach; ++i) made += Import(seed++);
        EXPECT_EQ(XXH3_64bits(made.data(), made.size()), digest) << "of seeds below " << seed;
    }
}

}  // namespace
}  // namespace vexlator::importer
