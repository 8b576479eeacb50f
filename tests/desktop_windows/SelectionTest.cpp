// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Windows.h"
#include "desktop/selection/SelectionWindow.h"
#include "platform/Files.h"
#include "support/DefaultSymbol.h"
#include "support/Installation.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QCheckBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTreeView>
#include <QUrl>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

namespace vexlator::desktop {
namespace {

class Selection : public test::InstallationTest {
protected:
    void SetUp() override {
        installation.Settings().TempDirectory = folder / "temp";
        test::WriteDefaultSymbol(folder);
        Ini("[OPTION]\nchkKeepOpen=1\ntxttarget=" + folder / "out/ALL.GRP" + "\n");
    }
    void Show() {
        window_ = std::make_unique<SelectionWindow>(installation, SelectionWindow::Options{});
        window_->show();
    }
    /// As a file manager drops it.
    void Drop(const std::string& path) {
        QMimeData dropped;
        dropped.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
        QDragEnterEvent enter({20, 20}, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window_.get(), &enter);
        QDropEvent drop({20, 20}, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window_.get(), &drop);
        ASSERT_GT(Rows(), 0);
    }
    void Click(const char* button) {
        window_->findChild<QPushButton*>(QLatin1String(button))->click();
        ASSERT_TRUE(test::WorkUntil([&] { return !window_->IsRunning(); }));
    }
    QAbstractItemModel& List() {
        return *window_->findChild<QTreeView*>(QStringLiteral("lstFiles"))->model();
    }
    int Rows() { return List().rowCount(); }
    QString Cell(int row, SourceRows::Column column) { return List().index(row, column).data().toString(); }

    std::unique_ptr<SelectionWindow> window_;
};

TEST_F(Selection, ADroppedJobFolderIsItsJobAndImagesWithAPlace) {
    Show();
    folder.Write("job/ELM ROAD.JOB", "x");
    folder.Write("job/photos/001.jpg", "x");
    folder.Write("job/photos/plan.jpg", "x");
    folder.Write("job/photos/plan.jgw", "1\n0\n0\n-1\n0\n0\n");
    folder.Write("scans/sheet.jpg", "x");
    Drop(folder / "job");
    ASSERT_EQ(2, Rows());
    EXPECT_EQ("ELM ROAD.JOB", Cell(0, SourceRows::File));
    EXPECT_EQ("plan.jpg", Cell(1, SourceRows::File));
    Drop(folder / "scans");  // nothing says that it is a photograph
    EXPECT_EQ("sheet.jpg", Cell(0, SourceRows::File));
}

TEST_F(Selection, RunAgainConvertsWhatHasBeenMendedAndLeavesTheRest) {
    Show();
    std::filesystem::create_directory(folder / "maps");
    for (const char* extension : {"shp", "shx", "dbf"}) {
        std::string name = std::string("manholes.") + extension;
        std::filesystem::copy(VEXLATOR_EXAMPLES "/" + name, folder / "maps/" + name);
        std::filesystem::copy(VEXLATOR_EXAMPLES "/" + name, folder / "maps/valves." + extension);
    }
    std::filesystem::resize_file(folder / "maps/valves.shp", 60);
    Drop(folder / "maps");
    Click("btnGo");
    EXPECT_TRUE(window_->findChild<QPushButton*>(QStringLiteral("btnAgain"))->isVisible());
    std::string good = folder / "out/manholes/manholes.GRP", mended = folder / "out/valves/valves.GRP";
    ASSERT_TRUE(std::filesystem::exists(good));
    EXPECT_FALSE(std::filesystem::exists(mended));
    auto written = std::filesystem::last_write_time(good);

    std::filesystem::copy(VEXLATOR_EXAMPLES "/manholes.shp", folder / "maps/valves.shp",
                          std::filesystem::copy_options::overwrite_existing);
    Click("btnAgain");
    EXPECT_TRUE(std::filesystem::exists(mended));
    EXPECT_EQ(written, std::filesystem::last_write_time(good));
    constexpr std::size_t record = 96;  // of the map of both: a header and two packages
    EXPECT_EQ(3 * record, std::filesystem::file_size(folder / "out/out.GRP"));
    EXPECT_FALSE(window_->findChild<QPushButton*>(QStringLiteral("btnAgain"))->isVisible());
}

TEST_F(Selection, TheLanguageFileHasTheLastWordAndCollectsWhatItLacks) {
    std::string before = std::getenv("LC_ALL") ? std::getenv("LC_ALL") : "";
    setenv("LC_ALL", "cy_GB.UTF-8", 1);
    folder.Write("VxtLanguage_Dev.dll.GB", "Source|||Ffynhonnell\r\n");
    Show();
    QString british = window_->findChild<QLabel*>(QStringLiteral("lblSource"))->text();
    setenv("LC_ALL", "de_AT.UTF-8", 1);
    std::string file = folder.Write("VxtLanguage_Dev.dll.AT", "Source|||Herkunft\r\nGo|||Go\r\n");
    Show();
    setenv("LC_ALL", before.c_str(), 1);
    EXPECT_NE("Ffynhonnell", british);
    EXPECT_EQ("Herkunft", window_->findChild<QLabel*>(QStringLiteral("lblSource"))->text());
    // The window's own German fills the gaps.
    EXPECT_TRUE(window_->findChild<QCheckBox*>(QStringLiteral("chkKeepOpen"))->text().contains("Offen"));
    EXPECT_NE(std::string::npos, platform::ReadWholeFile(file).find("Keep open|||Keep open\r\n"));
}

}  // namespace
}  // namespace vexlator::desktop
