// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/options/frmBkgndOption.h"
#include "platform/Files.h"
#include "startup/CoordinateLibrary.h"
#include "support/Installation.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace vexlator::desktop {
namespace {

class Application : public testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int count = 1;
        static char name[] = "test_desktop_options";
        static char* arguments[] = {name, nullptr};
        application_ = std::make_unique<QApplication>(count, arguments);
    }
    void TearDown() override { application_.reset(); }

private:
    std::unique_ptr<QApplication> application_;
};
const testing::Environment* const application = testing::AddGlobalTestEnvironment(new Application);

class Options : public test::InstallationTest {
protected:
    void Open(std::string_view ini) {
        Ini(ini);
        window_ = std::make_unique<frmBkgndOption>(installation);
    }
    template <typename Widget>
    Widget* The(const char* name) {
        return window_->findChild<Widget*>(QLatin1String(name));
    }
    std::string Done() {
        The<QPushButton>("btnDone")->click();
        return platform::ReadWholeFile(folder / "gv.ini");
    }
    std::unique_ptr<frmBkgndOption> window_;
};

TEST_F(Options, WritesWhatHasChangedAndNothingElse) {
    const std::string ini =
        "; ours\r\n[GRP]\r\nDONTEXPLODE=1\r\n; "
        "tiles\r\nCREATEDXF=yes\r\n[ESRI]\r\nARC10=2\r\n[SHPin]\r\nLL=1\r\n";
    Open(ini);
    EXPECT_EQ("1000", The<QLineEdit>("txtGridInterval")->text());
    EXPECT_FALSE(The<QCheckBox>("chkCreateLocalDXF")->isChecked());
    EXPECT_EQ(ini, Done());
    Open(ini);
    EXPECT_FALSE(The<QCheckBox>("chkESRI10")->isChecked());
    The<QCheckBox>("chkESRI102")->click();
    The<QCheckBox>("chkLLin")->click();
    The<QCheckBox>("chkLLin")->click();
    The<QPlainTextEdit>("txtPDFlayers")->setPlainText("Page1=A,B\nPage2=C\n");
    EXPECT_EQ(
        "; ours\r\n[GRP]\r\nDONTEXPLODE=1\r\n; tiles\r\nCREATEDXF=yes\r\nPDFlayers=Page1=A,B\\Page2=C\r\n"
        "[ESRI]\r\nARC10=0\r\n[SHPin]\r\nLL=1\r\n",
        Done());
}

TEST_F(Options, EsriVersionsExcludeEachOther) {
    Open("[ESRI]\nARC10=2\n");
    The<QCheckBox>("chkESRI105")->click();
    EXPECT_FALSE(The<QCheckBox>("chkESRI102")->isChecked());
    EXPECT_EQ("[ESRI]\nARC10=5\n", Done());
}

TEST_F(Options, FindsASettingByAWordAndChecksWhatIsTyped) {
    Open("[SHPout]\nLL=1\n");
    auto* table = The<QTreeWidget>("lstSettings");
    The<QLineEdit>("txtSearch")->setText("shapefile exports are in latitude");
    std::vector<QTreeWidgetItem*> shown;
    for (QTreeWidgetItem* row : table->findItems("*", Qt::MatchWildcard | Qt::MatchRecursive))
        if (row->parent() && !row->isHidden()) shown.push_back(row);
    ASSERT_EQ(1U, shown.size());
    EXPECT_TRUE(shown[0]->text(0).contains("●"));
    auto* findings = The<QTreeWidget>("lstFindings");
    shown[0]->setText(1, "yes");
    EXPECT_TRUE(findings->topLevelItem(0)->text(0).startsWith("[SHPout] LL=yes: neither 0 nor 1"));
    shown[0]->setText(1, "0");
    EXPECT_EQ("gv.ini has no faults.", findings->topLevelItem(0)->text(0));
    EXPECT_EQ("[SHPout]\nLL=0\n", Done());
}

TEST_F(Options, CopiesTheCoordinateLibraryToWhereItIsExpected) {
    setenv("VEXLATOR_REGISTRY", (folder / "registry").c_str(), 1);
    setenv("VEXLATOR_DRIVES", (folder / "drives").c_str(), 1);
    using State = startup::CoordinateLibrary::State;
    EXPECT_EQ(State::Fine, startup::CheckCoordinateLibrary().state);
    folder.Write("registry/machine/SOFTWARE/Veltrom/Share/CurrentGeoDataDirectory", "C:\\Geo\\Data");
    startup::CoordinateLibrary missing = startup::CheckCoordinateLibrary();
    EXPECT_EQ(State::Missing, missing.state);
    EXPECT_TRUE(missing.Message().starts_with("qxTools.csw is missing from "));
    folder.Write("drives/c/program files/common files/veltrom/geodata/qxtools.csw", "library");
    startup::CoordinateLibrary library = startup::CheckCoordinateLibrary();
    ASSERT_EQ(State::CanCopy, library.state);
    EXPECT_TRUE(library.Copy());
    EXPECT_EQ("library", platform::ReadWholeFile("C:\\Geo\\Data\\qxtools.csw"));
    EXPECT_EQ(State::Fine, startup::CheckCoordinateLibrary().state);
}

}  // namespace
}  // namespace vexlator::desktop
