// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/csv/frmCSV.h"
#include "support/ExportTest.h"

#include <filesystem>

namespace vexlator {
namespace {

using TwoRuns = test::ExportTest;

TEST_F(TwoRuns, OfOneInstallationKnowNothingOfEachOther) {
    installation.Settings().WorkFlowDirectory = folder / "jobs";
    Give(On("TREE").addPoint({1, 2, 0}), {{"PHOTO", "gone.jpg"}, {"NOTE", "a,b"}});
    drawing.properties().emplace_back("Source", folder / "jobs/Ann/Roads/a.JOB");
    ASSERT_EQ(Export<exporter::frmCSV>(0).features, 1U);

    drawing.clear();
    On("TREE").addPoint({3, 4, 0});
    drawing.saveAs(folder / "Other.VDF");
    config::Run second(installation, ui);
    ASSERT_EQ(exporter::frmCSV(second).Start(folder / "Other.VDF", folder / "out", 0).features, 1U);

    EXPECT_EQ(run.Job().relative, "Ann\\Roads\\a.JOB");
    EXPECT_EQ(run.MissingPhotos(), "gone.jpg missing from gone.jpg\r\n");
    EXPECT_FALSE(run.Losses().Empty());
    EXPECT_EQ(second.Job().full + second.MissingPhotos() + second.Losses().Line(), "");
}

}  // namespace
}  // namespace vexlator
