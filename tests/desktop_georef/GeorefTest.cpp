// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/georef/ImagePyramid.h"
#include "desktop/georef/ImageView.h"
#include "desktop/georef/frmGeoRef.h"
#include "platform/Errors.h"
#include "platform/Files.h"
#include "support/Installation.h"
#include "support/TempFolder.h"
#include "support/TestUi.h"

#include <QApplication>
#include <QPainter>
#include <QPlainTextEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace vexlator::desktop {
namespace {

class Application : public testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int count = 1;
        static char name[] = "test_desktop_georef";
        static char* arguments[] = {name, nullptr};
        application_ = std::make_unique<QApplication>(count, arguments);
    }
    void TearDown() override { application_.reset(); }

private:
    std::unique_ptr<QApplication> application_;
};
const testing::Environment* const application = testing::AddGlobalTestEnvironment(new Application);

class Georeferencing : public test::InstallationTest {
protected:
    void SetUp() override {
        QImage plan(900, 700, QImage::Format_RGB32);
        plan.fill(Qt::white);
        folder.Write("plan.INI", "");
        ASSERT_TRUE(plan.save(QString::fromStdString(image_), "JPG"));
    }
    void Open() {
        window_.reset();
        window_ = std::make_unique<frmGeoRef>(installation);
        window_->setAttribute(Qt::WA_DeleteOnClose, false);
        window_->resize(1200, 900);
        window_->show();
        window_->LoadJPG(image_);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !window_->IsBusy(); }));
    }
    ImageView& Picture() { return window_->Picture(); }
    QPoint PlaceOf(double x, double y) { return Picture().PlaceOf({x, y}).toPoint(); }
    void Click(double x, double y) { QTest::mouseClick(&Picture(), Qt::LeftButton, {}, PlaceOf(x, y)); }
    std::string Pixels() {
        std::string text;
        for (const auto& point : window_->Points().Points()) text += point.pixel + ";";
        return text;
    }

    std::string image_ = folder / "plan.jpg";
    std::unique_ptr<frmGeoRef> window_;
};

TEST_F(Georeferencing, APointIsClickedNudgedTypedUndoneAndStillThereLater) {
    Open();
    Click(100, 50);
    EXPECT_EQ("100,50;", Pixels());
    QTest::keyClick(&Picture(), Qt::Key_Right);
    QTest::keyClick(&Picture(), Qt::Key_Down);
    EXPECT_EQ("101,51;", Pixels());
    window_->Points().Undo().undo();
    EXPECT_EQ("100,50;", Pixels());
    // What is typed next is its ground position.
    QTest::keyClick(&Picture(), '4');
    QTest::keyClicks(QApplication::focusWidget(), "00123, 300456");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ("400123.000,300456.000", window_->Points().Points()[0].ground);

    Click(300, 200);
    QTest::mousePress(&Picture(), Qt::LeftButton, {}, PlaceOf(300, 200));
    QTest::mouseMove(&Picture(), PlaceOf(310, 215));
    QTest::mouseRelease(&Picture(), Qt::LeftButton, {}, PlaceOf(310, 215));
    EXPECT_EQ("100,50;310,215;", Pixels());
    QTest::keyClick(&Picture(), Qt::Key_Delete);
    EXPECT_EQ("100,50;", Pixels());
    window_->Points().Undo().undo();

    Open();
    EXPECT_EQ("100,50;310,215;", Pixels());
    auto* list = window_->findChild<QPlainTextEdit*>(QStringLiteral("txtControl"));
    EXPECT_EQ("1P=100,50\n1G=400123.000,300456.000\n2P=310,215\n2G=\n", list->toPlainText());
    list->setPlainText("1P=5,6\n1G=7,8");
    list->moveCursor(QTextCursor::End);
    for (char typed : std::string("\n2P=9,9")) list->insertPlainText(QString(QChar(typed)));
    EXPECT_EQ("5,6;9,9;", Pixels());
}

TEST_F(Georeferencing, AStrangeFileOfPointsIsReadAsFarAsItGoesAndNeverLost) {
    std::string huge = "[GEOREF]\n1P=1,1\n;" + std::string(11'000'000, 'x');
    std::string other = "[OTHER]\r\nkey=kept\r\n";
    for (const std::string& ini : {std::string("\xff\xfe\0[GEOREF", 10), huge,
                                   other + "[GEOREF]\r\n1P=1e999,nan\r\n1G=,\r\nSIZE=-5,99999999999\r\n"
                                           "[GEOREF_ASIDE]\r\nCOUNT=999999999\r\n"}) {
        folder.Write("plan.INI", ini);
        Open();
        Click(10, 20);
        QTest::keyClick(&Picture(), Qt::Key_Right);
        window_.reset();
        std::string after = platform::ReadWholeFile(folder / "plan.INI");
        if (ini == huge)
            EXPECT_EQ(huge, after);
        else
            EXPECT_TRUE(
                after.find("11,20") != std::string::npos &&
                (ini.find("kept") == std::string::npos || after.find("key=kept") != std::string::npos))
                << after;
    }
}

TEST_F(Georeferencing, TheHelperPlacesTurnsAndCutsTheImage) {
    georef::GeorefFile file;
    file.points = {{"0,0", "1000,2000"}, {"800,512", "1400,1744"}, {"5,5", ""}};
    georef::ImageOnDisk image{image_, 900, 700};
    EXPECT_EQ("", georef::Carve(run, image, file));
    EXPECT_EQ("No World File!", ui.messages.back());
    EXPECT_EQ(3U, georef::ReadGeorefFile(folder / "plan.INI").points.size());

    ui.answers = {true};
    folder.Write("bkg.jpg", "somebody's own");
    EXPECT_NE("", georef::Georeference(run, image, file).worldFile);
    EXPECT_EQ("Continue with Georeferencing based on 2 points?", ui.questions.back());
    formats::WorldFile world = formats::ReadWorldFile(folder / "plan.jgw");
    EXPECT_NEAR(0.5, world.a, 1e-9);
    EXPECT_NEAR(1000.25, world.c, 1e-9);
    EXPECT_NEAR(1999.75, world.f, 1e-9);
    EXPECT_EQ("somebody's own", platform::ReadWholeFile(folder / "bkg.jpg"));

    file.rotate = true;
    ui.answers = {true, false, true};
    EXPECT_EQ(folder.Path() + "\\plan_R.JPG", georef::Georeference(run, image, file).rotatedImage);
    EXPECT_TRUE(platform::FileExists(folder / "plan_R.JGW"));

    ui.answers = {true};
    EXPECT_EQ(folder.Path() + "\\plan_files\\plan_001_001.jpg", georef::Carve(run, image, file));
    EXPECT_EQ("plan Split 6 Segments", ui.messages.back());

    file.points = {{"0,0", "359.9,2"}, {"9,9", "1,-359.9"}};
    georef::Georeference(run, image, file);
    file.points[0].ground = "360,2";
    georef::Georeference(run, image, file);
    std::vector<std::string> asked(ui.questions.end() - 3, ui.questions.end());
    EXPECT_EQ((std::vector<std::string>{"Convert Latlngs to Selected Coordinate System?",
                                        "Continue with Georeferencing based on 2 points?",
                                        "Continue with Georeferencing based on 2 points?"}),
              asked);
}

TEST(ImagePyramid, RefusesImagesThatEndEarlyOrClaimTooMuch) {
    test::TempFolder folder;
    QImage plan(900, 700, QImage::Format_RGB32);
    for (int y = 0; y < 700; ++y)
        for (int x = 0; x < 900; ++x) plan.setPixel(x, y, qRgb(x & 255, y & 255, (x * y) & 255));
    for (const char* format : {"JPG", "BMP", "PNG", "TIFF"}) {
        std::string path = folder / ("plan." + std::string(format));
        if (!plan.save(QString::fromStdString(path), format)) continue;  // no plugin for TIFF
        EXPECT_EQ(900, ReadImage(path, {})->Size().width()) << format;
        std::string bytes = platform::ReadWholeFile(path);
        folder.Write("cut.img", bytes.substr(0, bytes.size() * 2 / 3));
        EXPECT_THROW(ReadImage(folder / "cut.img", {}), platform::ReadError) << format;
    }
    // A header alone, of 40,000 x 40,000 pixels.
    folder.Write("huge.bmp",
                 std::string("BM6\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x40\x9c\0\0\x40\x9c\0\0\1\0\x18\0", 30) +
                     std::string(24, '\0'));
    EXPECT_THROW(ReadImage(folder / "huge.bmp", {}), platform::ReadError);
}

// Every scale shows the place that it should: an image of one dark pixel block in white.
TEST(ImagePyramid, PaintsThePlaceThatIsAskedForAtEveryScale) {
    for (QImage::Format format : {QImage::Format_RGB32, QImage::Format_Grayscale8, QImage::Format_Mono}) {
        QImage image(1001, 777, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter(&image).fillRect(640, 320, 64, 64, Qt::black);
        ImagePyramid pyramid(image.convertToFormat(format));
        EXPECT_LE(pyramid.Bytes(), 1.5 * 1001 * 780 * (format == QImage::Format_RGB32 ? 4 : 1));
        for (double scale : {4.0, 1.0, 0.7, 0.5, 0.25, 0.1}) {
            QImage screen(200, 200, QImage::Format_RGB32);
            screen.fill(Qt::white);
            QPainter painter(&screen);
            QRectF part(600, 300, 200 / scale, 200 / scale);
            part &= QRectF(0, 0, 1001, 777);
            pyramid.Paint(painter, QRectF(QPointF(), part.size() * scale), part);
            painter.end();
            auto shade = [&](double x, double y) {
                return qGray(screen.pixel(int((x - 600) * scale), int((y - 300) * scale)));
            };
            EXPECT_LT(shade(645, 330), scale < 0.2 ? 120 : 30) << scale << " " << format;
            EXPECT_GT(shade(615, 310), 225) << scale << " " << format;
        }
    }
}

}  // namespace
}  // namespace vexlator::desktop
