// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Windows.h"
#include "desktop/application/Application.h"
#include "desktop/selection/SelectionWindow.h"
#include "desktop/styling/StyledDrawing.h"
#include "desktop/styling/frmBkgndStyle.h"
#include "drawing/LineTypes.h"
#include "platform/Files.h"
#include "support/DefaultSymbol.h"
#include "support/Installation.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QTranslator>
#include <QTreeView>
#include <filesystem>
#include <gtest/gtest.h>

namespace vexlator::desktop {
namespace {

class Application : public testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("XDG_CONFIG_HOME", folder_.Path().c_str());
        static int count = 1;
        static char name[] = "test_desktop_windows";
        static char* arguments[] = {name, nullptr};
        QLocale::setDefault(QLocale(QLocale::German));
        application_ = std::make_unique<QApplication>(count, arguments);
        desktop::SetUp(*application_);
    }
    void TearDown() override { application_.reset(); }

private:
    test::TempFolder folder_;
    std::unique_ptr<QApplication> application_;
};
const testing::Environment* const application = testing::AddGlobalTestEnvironment(new Application);

template <typename... Kinds>
bool IsOneOf(const QWidget* widget) {
    return (qobject_cast<const Kinds*>(widget) || ...);
}

/// Some label leads to the field by its key.
bool HasBuddy(const QWidget& window, const QWidget* field) {
    auto labels = window.findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(), [&](auto* label) { return label->buddy() == field; });
}

/// What is wrong with a widget for those who do not see it, or do not read it whole; "" for nothing.
std::string Fault(const QWidget& window, const QWidget* widget) {
    bool isField = IsOneOf<QLineEdit, QPlainTextEdit, QTreeView, QProgressBar>(widget);
    auto* button = qobject_cast<const QAbstractButton*>(widget);
    auto* label = qobject_cast<const QLabel*>(widget);
    bool isNamed = !widget->accessibleName().isEmpty() || (button && !button->text().isEmpty());
    if ((isField || button) && !isNamed) return "has no name";
    if (IsOneOf<QLineEdit>(widget) && !HasBuddy(window, widget)) return "has no label that leads to it";
    bool isText = button || (label && label->buddy());
    bool isCut = isText && widget->isVisible() && widget->width() < widget->minimumSizeHint().width();
    return isCut ? "is too narrow for its text" : "";
}

/// Keys that lead to more than one control.
QString AmbiguousKeys(const QWidget& window) {
    QStringList texts;
    for (auto* menus : window.findChildren<QMenuBar*>())
        for (auto* action : menus->actions()) texts << action->text();
    for (auto* button : window.findChildren<QAbstractButton*>())
        if (button->isVisible() && button->isEnabled()) texts << button->text();
    for (auto* label : window.findChildren<QLabel*>())
        if (label->isVisible() && label->buddy()) texts << label->text();
    QString keys, ambiguous;
    for (const QString& text : texts) {
        QString key = QKeySequence::mnemonic(text).toString().right(1);
        if (keys.contains(key) && !key.isEmpty()) ambiguous += key;
        keys += key;
    }
    return ambiguous;
}

// Those who do not see, or use no mouse, find every field; no translation is cut.
void CheckWindows() {
    test::TempFolder folder;
    test::Windows(folder.Path()).ForEach([](const std::string& name, QWidget& window) {
        EXPECT_EQ("", AmbiguousKeys(window).toStdString()) << name;
        for (auto* widget : window.findChildren<QWidget*>()) {
            bool isOfQt = widget->objectName().startsWith("qt_") || widget->inherits("QTableCornerButton") ||
                          IsOneOf<QLineEdit>(widget->parentWidget());
            if (isOfQt) continue;
            EXPECT_EQ("", Fault(window, widget))
                << name << ": " << widget->metaObject()->className() << widget->objectName().toStdString();
        }
    });
}

TEST(Windows, NameTheirFieldsAndCutNoText) {
    CheckWindows();
    for (auto* german : QCoreApplication::instance()->findChildren<QTranslator*>())
        QCoreApplication::removeTranslator(german);
    CheckWindows();
}

/// The longest time that the event loop has not answered.
class Pulse {
public:
    Pulse() {
        QObject::connect(&timer_, &QTimer::timeout, [this] { longest_ = qMax(longest_, since_.restart()); });
        since_.start();
        timer_.start(1);
    }
    qint64 Longest() const { return longest_; }

private:
    QTimer timer_;
    QElapsedTimer since_;
    qint64 longest_ = 0;
};

class AMillionFeatures : public test::InstallationTest {
protected:
    void SetUp() override {
        std::string mif = "Version 300\nCharset \"WindowsLatin1\"\nColumns 1\n  REF Integer\nData\n\n", mid;
        for (int i = 0; i < 1000000; ++i) {
            mif += "POINT " + std::to_string(i % 1000) + " " + std::to_string(i / 1000) + "\n";
            mid += std::to_string(i) + "\n";
        }
        folder.Write("maps/POINTS.MID", mid);
        installation.Settings().TempDirectory = folder / "temp";
        std::string ini = "[OPTION]\nchkKeepOpen=1\ntxtSource=" + folder.Write("maps/POINTS.MIF", mif);
        Ini(ini + "\ntxttarget=" + package_ + "\n");
        window_ = std::make_unique<SelectionWindow>(installation, SelectionWindow::Options{});
        window_->show();
    }
    void Click(const char* button) { window_->findChild<QPushButton*>(QLatin1String(button))->click(); }
    bool WaitForEnd() {
        return test::WorkUntil([&] { return !window_->IsRunning(); });
    }
    QString State() {
        auto* rows = window_->findChild<QTreeView*>(QStringLiteral("lstFiles"))->model();
        return rows->index(0, SourceRows::State).data().toString();
    }

    std::string package_ = folder / "out/POINTS.GRP";
    std::unique_ptr<SelectionWindow> window_;
};

TEST_F(AMillionFeatures, NeverKeepTheWindowFromAnsweringNorFromCancelling) {
    qint64 longest = 1000;
    for (int attempt = 0; attempt < 3 && longest > 50;
         ++attempt) {  // another program may have had the processor
        Pulse pulse;
        Click("btnGo");
        ASSERT_TRUE(WaitForEnd());
        longest = pulse.Longest();
    }
    EXPECT_LE(longest, 50);
    EXPECT_TRUE(State().contains("1.000.000")) << State().toStdString();

    std::string before = platform::ReadWholeFile(package_);
    Click("btnGo");
    QElapsedTimer since;
    QTimer::singleShot(300, [&] {
        Click("btnCancel");
        since.start();
    });
    ASSERT_TRUE(WaitForEnd());
    ASSERT_TRUE(since.isValid());
    EXPECT_LT(since.elapsed(), 1000);
    EXPECT_EQ(before, platform::ReadWholeFile(package_));
    EXPECT_FALSE(State().contains("1.000.000"));
}

class Styling : public test::InstallationTest {
protected:
    void SetUp() override {
        QObject::connect(&answers_, &QTimer::timeout, [] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (QAbstractButton* yes = box ? box->button(QMessageBox::Yes) : nullptr) yes->click();
        });
        answers_.start(5);
        installation.Settings().TempDirectory = folder / "temp";
        std::filesystem::create_directories(folder / "temp");
        test::WriteDefaultSymbol(folder);
        window_ = new frmBkgndStyle(installation);
        window_->OpenDrawing(VEXLATOR_EXAMPLES "/village.gml");
        ASSERT_TRUE(Wait());
        Click("btnGetLayers");
    }
    void TearDown() override { delete window_; }
    bool Wait() {
        return test::WorkUntil([&] { return !window_->IsBusy(); });
    }
    void Click(const char* button) { window_->findChild<QPushButton*>(QLatin1String(button))->click(); }
    void Trigger(const QKeySequence& keys) {
        for (QAction* action : window_->findChildren<QAction*>())
            if (action->shortcut() == keys) return action->trigger();
        FAIL() << keys.toString().toStdString();
    }
    void Set(int row, background::StyleColumn column, const char* look) {
        QAbstractItemModel* rows = window_->findChild<QTableView*>(QStringLiteral("grdStyle"))->model();
        rows->setData(rows->index(row, static_cast<int>(column)), QString::fromLatin1(look), Qt::EditRole);
    }
    const std::vector<background::StyleRow>& Rows() { return window_->State().style.rows; }

    frmBkgndStyle* window_ = nullptr;
    QTimer answers_;  ///< says yes to every question
};

TEST_F(Styling, ShowsTheDeviceAndUndoesEveryChange) {
    std::vector<background::StyleRow> before = Rows();
    ASSERT_GT(before.size(), 1U);
    Set(0, background::StyleColumn::Areas, "Red");
    EXPECT_EQ("Red", Rows()[0].areas);
    EXPECT_TRUE(window_->windowTitle().contains('*'));
    window_->findChild<QComboBox*>(QStringLiteral("lstTools"))->setCurrentIndex(0);
    Click("cmdTools");
    ASSERT_TRUE(test::WorkUntil([&] { return window_->State().changes.size() == 1; }));
    Click("btnDevice");
    ASSERT_TRUE(Wait());
    EXPECT_TRUE(window_->findChild<QPushButton*>(QStringLiteral("btnDevice"))->isChecked());
    Trigger(QKeySequence::Undo);
    ASSERT_TRUE(Wait());
    Trigger(QKeySequence::Undo);
    EXPECT_EQ(before, Rows());
    EXPECT_TRUE(window_->State().changes.empty());
}

TEST_F(Styling, AHeightCanBeEmptied) {
    auto* height = window_->findChild<QLineEdit*>(QStringLiteral("txtAnnoHeight"));
    for (const char* typed : {"2.5", ""}) {
        height->clear();
        QTest::keyClicks(height, QLatin1String(typed));
        QTest::keyClick(height, Qt::Key_Return);
        EXPECT_EQ(typed, window_->State().style.fixedAnnotationHeight);
    }
}

// Enter in the list of an empty cell would ask for another file.
TEST_F(Styling, TheListOfAnEmptyCellBeginsWithNothingChosen) {
    auto* grid = window_->findChild<QTableView*>(QStringLiteral("grdStyle"));
    grid->edit(grid->model()->index(1, static_cast<int>(background::StyleColumn::Points)));
    auto* looks = grid->viewport()->findChild<QComboBox*>();
    ASSERT_TRUE(looks);
    EXPECT_EQ(-1, looks->currentIndex());
}

// The package only holds numbers of mobile styles.
TEST_F(Styling, DrawsMobileStylesAsTheDeviceDoes) {
    drawing::Drawing drawing;
    drawing.addPoint({5, 5, 0});
    drawing.addPolyline(std::vector<drawing::Point>{{0, 0, 0}, {90, 40, 0}});
    drawing.saveAs(folder / "two.VDF");
    std::string styles = "Pond=A,Cyan\nFence=S,#8b4513,2,Dash\nTree=P,Green,4,Solid,Star\n";
    installation.WriteIni("MOBILESTYLING", "FILE", folder.Write("styles.txt", styles));
    background::BackgroundStyle style;
    style.rows = {{"DEFAULT", "Tree", "Fence", "Pond"}};
    auto scene = DeviceScene(run, {folder / "two.VDF", {}, std::nullopt}, style, false);
    ASSERT_EQ(2U, scene->ItemCount());
    for (std::size_t i = 0; i < 2; ++i) {
        const render::Pen& pen = scene->PenOf(scene->At(i));
        bool isPoint = scene->At(i).kind == render::ItemKind::Dot;
        EXPECT_EQ(isPoint ? 0xFF008000 : 0xFF8B4513, pen.line);
        EXPECT_EQ(isPoint ? render::Marker::Star : render::Marker::Usual, pen.marker);
        EXPECT_EQ(isPoint ? 0 : drawing::LineTypeNumber("DASHED"), pen.lineType);
    }
}

}  // namespace
}  // namespace vexlator::desktop
