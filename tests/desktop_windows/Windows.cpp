// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Windows.h"

#include "desktop/application/CommandWindow.h"
#include "desktop/application/Conversation.h"
#include "desktop/georef/GroundMap.h"
#include "desktop/georef/ImageView.h"
#include "desktop/georef/frmGeoRef.h"
#include "desktop/map/MapView.h"
#include "desktop/map/MapWindow.h"
#include "desktop/mobilestyles/StyleEditorWindow.h"
#include "desktop/options/frmBkgndOption.h"
#include "desktop/selection/SelectionWindow.h"
#include "desktop/styling/frmBkgndStyle.h"
#include "startup/Main.h"
#include "startup/MakeInstallation.h"
#include "startup/Settings.h"
#include "support/TestUi.h"

#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QPainter>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <cmath>
#include <filesystem>
#include <fstream>

namespace vexlator::test {

namespace {

constexpr int aMinute = 60000;  // ms

constexpr const char* mobileStyles =
    "; styles of the crews' tablets\r\nHydrant=P,Red,5,Solid,Triangle\r\nManhole=P,Gray,6,Solid,Circle\r\n"
    "Main=S,Blue,3,Dash\r\nFence=S,#8b4513,2,DashDot,,snap\r\nPavement=A,Gray,1,Diagonal\r\nPond=A,Cyan,2\r\n"
    "Park=A,Green,1,Cross\r\n";
constexpr const char* villageStyle =
    "[LAYERS]\r\n1=DEFAULT,Blue,Blue,Blue,0,-1,0\r\n2=TopographicArea,Red,Red,Park,-1,0,0\r\n"
    "3=TopographicLine,Black,Fence,Pavement,0,0,0\r\n4=TopographicPoint,Hydrant,Main,Pond,0,0,0\r\n"
    "[SEARCHON]\r\nFIELD=name\r\n[FIXEDANNO]\r\nHGT=2.5\r\n";

QWidget& Shown(QWidget& window) {
    window.show();
    QTest::qWait(100);
    return window;
}

}  // namespace

bool WorkUntil(const std::function<bool()>& holds) {
    QEventLoop loop;
    QTimer looks, end;
    QObject::connect(&looks, &QTimer::timeout, [&] {
        if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget())) box->accept();
        if (holds()) loop.quit();
    });
    QObject::connect(&end, &QTimer::timeout, &loop, &QEventLoop::quit);
    looks.start(10);
    end.start(aMinute);
    loop.exec();
    return holds();
}

Windows::Windows(std::string folder) : folder_(std::move(folder)) {
    TestUi ui;
    startup::MakeInstallation(folder_ + "/installation", ui);
    qputenv("VEXLATOR_HOME", (folder_ + "/installation").c_str());
    startup::LocateSettings(installation_);
    startup::ReadSettings(installation_);
    std::filesystem::copy(VEXLATOR_EXAMPLES, folder_ + "/data", std::filesystem::copy_options::recursive);
    std::ofstream(folder_ + "/data/roads.shp") << "cut short";
    startup::Main("IMPORT " + folder_ + "/data/village.gml", ui);
}

void Windows::ForEach(const Look& look) {
    ShowSelection(look);
    ShowCommand(look);
    ShowMap(look);
    ShowOptions(look);
    ShowGeoreferencing(look);
    ShowStyling(look);
    ShowStyleEditor(look);
}

void Windows::ShowSelection(const Look& look) {
    installation_.WriteIni("OPTION", "txttarget", folder_ + "/maps/maps.GRP");
    installation_.WriteIni("OPTION", "chkKeepOpen", "1");
    auto openNothing = [](QWidget*) {};
    desktop::SelectionWindow window(
        installation_, {.others = {.options = openNothing, .preview = [](QWidget*, const QString&) {}}});
    look("selection-empty", Shown(window));
    QString data = QString::fromStdString(folder_ + "/data");
    window.ChooseSources(
        {data + "/job/RIVERSIDE.JOB", data + "/manholes.shp", data + "/roads.shp", data + "/village.gml"});
    look("selection", Shown(window));
    window.findChild<QPushButton*>(QStringLiteral("btnGo"))->click();
    WorkUntil([&] { return !window.IsRunning(); });
    look("selection-done", Shown(window));
}

void Windows::ShowCommand(const Look& look) {
    desktop::Conversation talk({});
    desktop::CommandWindow window(QStringLiteral("IMPORT C:\\Maps\\RIVERSIDE.JOB"), talk);
    auto form = talk.ShowForm("frmFromJOB");
    form->SetLabel("Features");
    form->Progress(120, 400);
    window.Report(QStringLiteral("TREE: 2 photographs"));
    look("command", Shown(window));
}

void Windows::ShowMap(const Look& look) {
    desktop::MapWindow window(installation_);
    bool isPainted = false;
    window.Map().painted = [&] { isPainted = true; };
    window.resize(900, 600);
    window.show();
    window.Open(folder_ + "/data/village.VDF");
    WorkUntil([&] { return isPainted; });
    look("map", Shown(window));
}

void Windows::ShowOptions(const Look& look) {
    desktop::frmBkgndOption window(installation_);
    auto* tabs = window.findChild<QTabWidget*>();
    for (int tab = 0; tab < tabs->count(); ++tab) {
        tabs->setCurrentIndex(tab);
        look("options-" + std::to_string(tab + 1), Shown(window));
    }
}

/// A scan of what the map shows, slightly turned, and points that do not quite agree.
void Windows::ShowGeoreferencing(const Look& look) {
    desktop::frmGeoRef window(installation_);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    look("georef-empty", Shown(window));
    bool isPainted = false;
    window.Map().Map().painted = [&] { isPainted = true; };
    window.ShowMap();
    window.Map().Open(folder_ + "/maps/RIVERSIDE/RIVERSIDE.GRP");
    WorkUntil([&] { return isPainted; });
    Shown(window);
    desktop::MapView& map = window.Map().Map();
    QTransform turn = QTransform().rotate(4).scale(2.2, 2.2);
    QImage whole = map.grab().toImage();
    whole.setDevicePixelRatio(1);
    const int top = whole.height() / 3;
    QImage seen = whole.copy(0, top, whole.width(), whole.height() / 2);
    turn = QImage::trueMatrix(turn, seen.width(), seen.height());
    QImage scan(turn.mapRect(seen.rect()).size(), QImage::Format_RGB32);
    scan.fill(QColor(236, 230, 215));
    QPainter painter(&scan);
    painter.setTransform(turn);
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(0, 0, seen);
    painter.end();
    scan.save(QString::fromStdString(folder_ + "/data/plan.jpg"), "JPG", 90);
    window.LoadJPG(folder_ + "/data/plan.jpg");
    WorkUntil([&] { return !window.IsBusy(); });
    const double misses[][2] = {{1, 1}, {-2, 1}, {1, -2}, {9, 4}, {0, 1}};
    const QPointF places[] = {{0.15, 0.2}, {0.8, 0.15}, {0.25, 0.8}, {0.75, 0.75}, {0.5, 0.45}};
    for (int i = 0; i < 5; ++i) {
        QPointF on(places[i].x() * seen.width(), places[i].y() * seen.height());
        QPointF pixel = turn.map(on) + QPointF(misses[i][0], misses[i][1]);
        int number = window.Points().Add({std::round(pixel.x()), std::round(pixel.y())});
        render::PlanePoint ground = map.Shown().ToGround({on.x(), on.y() + top});
        window.Points().SetGround(number, std::to_string(ground.x) + "," + std::to_string(ground.y));
    }
    window.Picture().Fit();
    auto placeOf = [&](double x, double y) {
        return window.Picture().PlaceOf(turn.map(QPointF(seen.width() * x, seen.height() * y))).toPoint();
    };
    QTest::mouseClick(&window.Picture(), Qt::LeftButton, {}, placeOf(0.15, 0.45));
    QTest::mouseMove(&window.Picture(), placeOf(0.49, 0.6));
    look("georef", Shown(window));
}

std::string Windows::Written(const std::string& name, const char* content) const {
    std::ofstream(folder_ + "/" + name, std::ios::binary) << content;
    return folder_ + "/" + name;
}

void Windows::ShowStyling(const Look& look) {
    installation_.WriteIni("MOBILESTYLING", "FILE", Written("styles.txt", mobileStyles));
    desktop::frmBkgndStyle window(installation_, [](const QString&, const QString&, const QString&) {});
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.LoadStyleFile(Written("village.BSF", villageStyle));
    window.OpenDrawing(folder_ + "/data/village.VDF");
    auto* map = dynamic_cast<desktop::MapView*>(window.findChild<QWidget*>(QStringLiteral("drawing")));
    bool isPainted = false;
    map->painted = [&] { isPainted = true; };
    window.show();
    WorkUntil([&] { return !window.IsBusy() && isPainted; });
    window.findChild<QPushButton*>(QStringLiteral("btnGetLayers"))->click();
    auto* tabs = window.findChild<QTabWidget*>();
    for (int tab = 0; tab < tabs->count(); ++tab) {
        tabs->setCurrentIndex(tab);
        look("styling-" + std::to_string(tab + 1), Shown(window));
    }
    window.findChild<QPushButton*>(QStringLiteral("btnDevice"))->click();
    WorkUntil([&] { return !window.IsBusy(); });
    look("styling-device", Shown(window));
}

void Windows::ShowStyleEditor(const Look& look) {
    desktop::StyleEditorWindow window;
    window.Open(Written("styles.txt", mobileStyles));
    look("style-editor", Shown(window));
}

}  // namespace vexlator::test
