// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/application/Texts.h"
#include "desktop/georef/GroundMap.h"
#include "desktop/georef/ImageView.h"
#include "desktop/georef/PointsPanel.h"
#include "desktop/georef/frmGeoRef.h"
#include "desktop/map/Icons.h"
#include "desktop/map/MapView.h"
#include "georef/QgisPoints.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Paths.h"

#include <QDockWidget>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QImageReader>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QToolBar>

/// The menus of the georeferencing window, its panels, and the files that are chosen.
namespace vexlator::desktop {

namespace {

QAction* AddTo(QMenu& menu, const QString& text, const QKeySequence& keys, std::function<void()> act) {
    QAction* action = menu.addAction(text);
    action->setShortcut(keys);
    QObject::connect(action, &QAction::triggered, action, std::move(act));
    return action;
}

QDockWidget* AddDock(QMainWindow& window, const char* name, const QString& title, QWidget* content,
                     Qt::DockWidgetArea area) {
    auto* dock = new QDockWidget(title);
    dock->setObjectName(QLatin1String(name));
    dock->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    dock->setWidget(content);
    window.addDockWidget(area, dock);
    return dock;
}

QString ImageFilter() {
    QString patterns;
    for (const QByteArray& format : QImageReader::supportedImageFormats()) {
        QString extension = QString::fromLatin1(format);
        patterns += "*." + extension + " *." + extension.toUpper() + " ";
    }
    return Texts::tr("Images (%1)").arg(patterns.trimmed()) + ";;" + Texts::tr("All files (*)");
}

}  // namespace

void frmGeoRef::MakeMenus() {
    QMenu* file = menuBar()->addMenu(Texts::tr("&File"));
    AddTo(*file, Texts::tr("&Open image…"), QKeySequence::Open, [this] { ChooseImage(); });
    AddTo(*file, Texts::tr("&Open drawing…"), Qt::CTRL | Qt::SHIFT | Qt::Key_O, [this] {
        ShowMap();
        map_->ChooseFile();
    });
    file->addSeparator();
    AddTo(*file, Texts::tr("&Import QGIS points…"), {}, [this] { ImportPoints(); });
    AddTo(*file, Texts::tr("&Export QGIS points…"), {}, [this] { ExportPoints(); });
    file->addSeparator();
    AddTo(*file, Texts::tr("&Close"), QKeySequence::Close, [this] { close(); });

    QMenu* edit = menuBar()->addMenu(Texts::tr("&Edit"));
    QAction* undo = points_.Undo().createUndoAction(this, Texts::tr("&Undo"));
    QAction* redo = points_.Undo().createRedoAction(this, Texts::tr("&Redo"));
    undo->setShortcut(QKeySequence::Undo);
    redo->setShortcut(QKeySequence::Redo);
    edit->addActions({undo, redo});
    edit->addSeparator();
    AddTo(*edit, Texts::tr("&Delete point"), Qt::CTRL | Qt::Key_Delete, [this] { RemoveSelected(); });
    AddTo(*edit, Texts::tr("Ground from the &world file"), {}, [this] { GroundFromWorldFile(); });
    MakeViewMenu();
}

void frmGeoRef::MakeViewMenu() {
    QMenu* view = menuBar()->addMenu(Texts::tr("&View"));
    AddTo(*view, Texts::tr("Zoom &in"), QKeySequence::ZoomIn,
          [this] { Picture().ZoomBy(MapView::zoomStep); });
    AddTo(*view, Texts::tr("Zoom &out"), QKeySequence::ZoomOut,
          [this] { Picture().ZoomBy(1 / MapView::zoomStep); });
    AddTo(*view, Texts::tr("Show a&ll"), Qt::CTRL | Qt::Key_0, [this] { Picture().Fit(); });
    AddTo(*view, Texts::tr("&Full size"), Qt::CTRL | Qt::Key_1, [this] { Picture().ShowFullSize(); });
    QToolBar* bar = addToolBar(Texts::tr("Georeferencing"));
    bar->setObjectName(QStringLiteral("georefBar"));
    bar->setMovable(false);
    bar->setIconSize({24, 24});
    bar->addAction(menuBar()->actions().first()->menu()->actions().first());
    bar->addSeparator();
    bar->addActions(view->actions().mid(0, 3));
    view->addSeparator();
    QAction* magnifier = AddTo(*view, Texts::tr("&Magnifier"), Qt::CTRL | Qt::Key_M, [] {});
    magnifier->setCheckable(true);
    magnifier->setChecked(true);
    connect(magnifier, &QAction::toggled, this, [this](bool isOn) { Picture().SetMagnified(isOn); });
    mapDock_ = AddDock(*this, "map", Texts::tr("Map"), map_, Qt::LeftDockWidgetArea);
    QDockWidget* points =
        AddDock(*this, "points", Texts::tr("Control points"), panel_, Qt::RightDockWidgetArea);
    mapDock_->hide();
    view->addActions({mapDock_->toggleViewAction(), points->toggleViewAction()});
    bar->addSeparator();
    bar->addAction(mapDock_->toggleViewAction());
    UseIcons();
}

void frmGeoRef::UseIcons() {
    QList<QAction*> actions = findChild<QToolBar*>()->actions();
    actions.removeIf([](QAction* action) { return action->isSeparator(); });
    const Drawn icons[] = {Drawn::Open, Drawn::ZoomIn, Drawn::ZoomOut, Drawn::Fit, Drawn::Layers};
    for (qsizetype i = 0; i < actions.size(); ++i) {
        actions[i]->setIcon(IconOf(icons[i], palette()));
        QString keys = actions[i]->shortcut().toString(QKeySequence::NativeText);
        actions[i]->setToolTip(actions[i]->iconText() + (keys.isEmpty() ? "" : " (" + keys + ")"));
    }
}

void frmGeoRef::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) UseIcons();
    QMainWindow::changeEvent(event);
}

void frmGeoRef::ShowMap() {
    mapDock_->show();
    resizeDocks({mapDock_}, {width() / 3}, Qt::Horizontal);
}

// --- Files

void frmGeoRef::ChooseImage() {
    QString folder = Text(platform::NativePath(util::FolderOf(image_.path)));
    QString path = QFileDialog::getOpenFileName(this, Texts::tr("Open image"), folder, ImageFilter());
    if (!path.isEmpty()) LoadJPG(path.toStdString());
}

void frmGeoRef::ImportPoints() {
    QString path = QFileDialog::getOpenFileName(
        this, Texts::tr("Import QGIS points"), Text(platform::NativePath(util::FolderOf(image_.path))),
        Texts::tr("QGIS points (*.points)") + ";;" + Texts::tr("All files (*)"));
    if (path.isEmpty()) return;
    try {
        points_.SetPoints(georef::ReadQgisPoints(path.toStdString()), Texts::tr("Import QGIS points"));
    } catch (const std::exception& error) {
        talk_.ShowMessage(error.what());
    }
}

void frmGeoRef::ExportPoints() {
    QString path =
        QFileDialog::getSaveFileName(this, Texts::tr("Export QGIS points"),
                                     Text(platform::NativePath(util::ChangeExtension(image_.path, "points"))),
                                     Texts::tr("QGIS points (*.points)"));
    if (path.isEmpty()) return;
    try {
        platform::ReplaceFile(path.toStdString(), georef::QgisPointsText(points_.Points()));
    } catch (const std::exception& error) {
        talk_.ShowMessage(error.what());
    }
}

void frmGeoRef::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void frmGeoRef::dropEvent(QDropEvent* event) {
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile()) return LoadJPG(url.toLocalFile().toStdString());
}

}  // namespace vexlator::desktop
