// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/meter/frmCAW.h"
#include "support/ExportTest.h"

#include <limits>

namespace vexlator::exporter {
namespace {

using drawing::Entity;

class MeterExport : public test::ExportTest {
protected:
    MeterExport() { drawing.setActiveLayer("METER"); }
    void SetValues(Entity entity, const std::string& ref, const std::string& remarks,
                   const std::string& gps) {
        Give(entity, {{"GPS", gps},
                      {"Date", "01/02/2024"},
                      {"MeterRef", ref},
                      {"Reading", "00417"},
                      {"Remarks", remarks}});
    }
    config::Outcome Export() {
        drawing.saveAs(folder / "Round 7.VDF");
        return frmCAW(run).Start(folder / "Round 7.VDF", folder / "out");
    }
    std::string Text() const { return Out("Round 7.TXT"); }
};

TEST_F(MeterExport, EveryByte) {
    SetValues(drawing.addInsert({412345.9, 287654.2, 1}, "meter", 1, 1, 0), "M1", "behind door", "");
    SetValues(drawing.addPoint({412345.9, 287654.2, 1}), "M2", "locked, dog", "412345287654");
    SetValues(drawing.addPoint({0.9, 0.2, 0}), "M3", "no place", "");
    SetValues(drawing.addPoint({1234567.5, 42, 0}), "M4", "", "000000000000");
    drawing.addPolyline();
    drawing.addText({1, 1, 0}, "note", 1, 0);
    drawing.setActiveLayer("OTHER");
    drawing.addPoint({1, 1, 0});
    config::Outcome outcome = Export();
    EXPECT_EQ(Text(),
              "mr,05/03/2024,Round 7,6,mr\r\n"
              "cr,M1,00417,01/02/2024,412345287654\r\n"
              "cr,M2,00417,01/02/2024,locked, dog\r\n"
              "cr,M3,00417,01/02/2024,no place\r\n"
              "cr,M4,00417,01/02/2024,1234567000042\r\n");
    EXPECT_EQ(outcome.layers, 1U);
    EXPECT_EQ(outcome.features, 4U);
    EXPECT_EQ(ui.labels.back(), "Completed!");
    EXPECT_EQ(run.Losses().Line(), "entities left out: METER.polyline 1, METER.text 1");
}

TEST_F(MeterExport, LinesHoldTogetherWhateverTheValues) {
    SetValues(drawing.addPoint({0, 0, 0}), "M,1\xC5\x91", "two\r\nlines", "");
    drawing.addPoint({-5.9, 200000, 0});  // without attributes
    drawing.addPoint({std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 0});
    Export();
    EXPECT_EQ(Text(),
              "mr,05/03/2024,Round 7,3,mr\r\n"
              "cr,M 1?,00417,01/02/2024,two  lines\r\n"
              "cr,,,,-000005200000\r\n"
              "cr,,,,0000001000000000000000\r\n");
    EXPECT_EQ(run.Losses().Line(), "characters replaced: METER.MeterRef 2, METER.Remarks 2");
}

}  // namespace
}  // namespace vexlator::exporter
