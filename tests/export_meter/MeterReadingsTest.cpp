// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/Drawing.h"
#include "export/meter/MeterReadings.h"
#include "export/meter/frmCAW.h"
#include "support/TempFolder.h"
#include "support/TestUi.h"

#include <gtest/gtest.h>
#include <limits>

namespace vexlator::exporter {
namespace {

using drawing::Drawing;
using drawing::Entity;
using test::TempFolder;

class MeterExport : public testing::Test {
protected:
    MeterExport() {
        session.Settings().IniFilePath = folder.Write("gv.ini", "");
        std::filesystem::create_directories(folder / "out");
        drawing.setActiveLayer("METER");
    }
    void SetValues(Entity entity, const std::string& ref, const std::string& remarks,
                   const std::string& gps) {
        entity.xproperties().add("GPS", gps);
        entity.xproperties().add("Date", "01/02/2024");
        entity.xproperties().add("MeterRef", ref);
        entity.xproperties().add("Reading", "00417");
        entity.xproperties().add("Remarks", remarks);
    }
    config::Outcome Export() {
        drawing.saveAs(folder / "Round 7.VDF");
        return frmCAW(session).Start(folder / "Round 7.VDF", folder / "out");
    }
    std::string Text() const { return TempFolder::Read(folder / "out/Round 7.TXT"); }

    TempFolder folder;
    test::TestUi ui;
    config::Session session{ui, [] { return platform::DateTime{.year = 2024, .month = 3, .day = 5}; }};
    Drawing drawing;
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
    EXPECT_EQ(session.Losses().Line(), "");
}

TEST_F(MeterExport, LinesHoldTogetherWhateverTheValues) {
    SetValues(drawing.addPoint({0, 0, 0}), "M,1\xC5\x91", "two\r\nlines", "");
    drawing.addPoint({300000, 200000, 0});  // without attributes
    Export();
    EXPECT_EQ(Text(),
              "mr,05/03/2024,Round 7,2,mr\r\n"
              "cr,M 1?,00417,01/02/2024,two  lines\r\n"
              "cr,,,,300000200000\r\n");
    EXPECT_EQ(session.Losses().Line(), "characters replaced: METER.MeterRef 2, METER.Remarks 2");
}

TEST_F(MeterExport, WithoutMetersThereIsNoFile) {
    drawing.addPoint({1, 1, 0});
    drawing.findLayer("METER")->frozen = true;
    drawing.setActiveLayer("OTHER");
    drawing.addPoint({1, 1, 0});
    config::Outcome outcome = Export();
    EXPECT_EQ(outcome.layers, 0U);
    EXPECT_EQ(outcome.target, folder / "out");
    EXPECT_FALSE(std::filesystem::exists(folder / "out/Round 7.TXT"));
    EXPECT_TRUE(ui.messages.empty() && ui.reports.empty());
}

TEST(MeterGridReference, SixDigitsEach) {
    const double far = std::numeric_limits<double>::infinity(),
                 none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(MeterGridReference({7, 99.999, 0}), "000007000099");
    EXPECT_EQ(MeterGridReference({-5.9, -0.9, 0}), "-000005000000");
    EXPECT_EQ(MeterGridReference({none, far, 0}), "0000001000000000000000");
}

}  // namespace
}  // namespace vexlator::exporter
