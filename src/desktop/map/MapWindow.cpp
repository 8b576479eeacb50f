// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/map/MapWindow.h"

#include "desktop/application/Texts.h"
#include "desktop/map/Icons.h"
#include "desktop/map/LayerPanel.h"
#include "desktop/map/MapView.h"
#include "platform/Paths.h"
#include "render/RoundLengths.h"
#include "util/Numbers.h"
#include "util/Paths.h"

#include <QAction>
#include <QClipboard>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

namespace vexlator::desktop {

namespace {

/// The words of details, for scripts/translate.
[[maybe_unused]] constexpr const char* detailWords[] = {
    QT_TRANSLATE_NOOP("MapWindow", "area"),          QT_TRANSLATE_NOOP("MapWindow", "closed polyline"),
    QT_TRANSLATE_NOOP("MapWindow", "polyline"),      QT_TRANSLATE_NOOP("MapWindow", "line"),
    QT_TRANSLATE_NOOP("MapWindow", "filled circle"), QT_TRANSLATE_NOOP("MapWindow", "circle"),
    QT_TRANSLATE_NOOP("MapWindow", "arc"),           QT_TRANSLATE_NOOP("MapWindow", "text"),
    QT_TRANSLATE_NOOP("MapWindow", "symbol"),        QT_TRANSLATE_NOOP("MapWindow", "point"),
    QT_TRANSLATE_NOOP("MapWindow", "image"),         QT_TRANSLATE_NOOP("MapWindow", "Text"),
    QT_TRANSLATE_NOOP("MapWindow", "Symbol"),        QT_TRANSLATE_NOOP("MapWindow", "Radius"),
    QT_TRANSLATE_NOOP("MapWindow", "Height"),        QT_TRANSLATE_NOOP("MapWindow", "Label"),
    QT_TRANSLATE_NOOP("MapWindow", "Link"),          QT_TRANSLATE_NOOP("MapWindow", "Pixels")};

/// A text that a click copies.
QToolButton* Copied(const QString& accessibleName, const QString& help) {
    auto* button = new QToolButton;
    button->setAutoRaise(true);
    button->setAccessibleName(accessibleName);
    button->setToolTip(help);
    QObject::connect(button, &QToolButton::clicked, button, [button] {
        QGuiApplication::clipboard()->setText(button->property("copied").toString());
    });
    return button;
}

std::string LengthInWords(double length) {
    return util::FormatFixed(length, length < 1 ? 4 : 2);
}

}  // namespace

MapWindow::MapWindow(config::Installation& installation, QWidget* parent)
    : QMainWindow(parent),
      installation_(installation),
      map_(new MapView),
      layers_(new LayerPanel),
      details_(new QTreeWidget),
      hovered_(new QLabel),
      place_(Copied(tr("Coordinates"), tr("Coordinates under the pointer; a click copies the last ones"))),
      scale_(Copied(tr("Scale"), tr("Scale of the map; a click copies it"))) {
    setAttribute(Qt::WA_DeleteOnClose);
    setAcceptDrops(true);
    setWindowTitle(tr("Map"));
    setCentralWidget(map_);
    map_->SetNotice(tr("Open a drawing (VDF) or a background package (GRP), or drop one here."));
    map_->pointed = [this](auto ground) { ShowPlace(ground); };
    map_->viewChanged = [this] { ShowScale(); };
    map_->hovered = [this](auto item) { ShowHovered(item); };
    map_->selected = [this](auto item) { ShowSelected(item); };
    layers_->changed = [this] { map_->SetHiddenLayers(layers_->Hidden()); };
    MakeActions();
    MakePanels();
    MakeStatusLine();
    resize(1180, 760);
}

MapWindow::~MapWindow() {
    // Its destructor reports a lost selection.
    map_->selected = nullptr;
}

void MapWindow::MakeActions() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    QMenu* view = menuBar()->addMenu(tr("&View"));
    QToolBar* bar = addToolBar(tr("Map"));
    bar->setObjectName(QStringLiteral("mapBar"));
    bar->setMovable(false);
    bar->setIconSize({24, 24});
    QAction* open = AddAction(tr("&Open…"), Drawn::Open, QKeySequence::Open, &MapWindow::ChooseFile);
    file->addAction(open);
    file->addSeparator();
    file->addAction(tr("&Close"), QKeySequence::Close, this, &QWidget::close);
    bar->addAction(open);
    bar->addSeparator();
    for (QAction* action :
         {AddAction(tr("Zoom &in"), Drawn::ZoomIn, QKeySequence::ZoomIn, &MapWindow::ZoomIn),
          AddAction(tr("Zoom &out"), Drawn::ZoomOut, QKeySequence::ZoomOut, &MapWindow::ZoomOut),
          AddAction(tr("Show a&ll"), Drawn::Fit, QKeySequence(Qt::CTRL | Qt::Key_0), &MapWindow::Fit),
          AddAction(tr("Zoom to &rectangle"), Drawn::Rectangle, QKeySequence(Qt::CTRL | Qt::Key_R),
                    &MapWindow::ZoomToRectangle)}) {
        view->addAction(action);
        bar->addAction(action);
    }
    view->addSeparator();
    UseIcons();
}

QAction* MapWindow::AddAction(const QString& text, Drawn icon, const QKeySequence& keys,
                              void (MapWindow::*act)()) {
    auto* action = new QAction(text, this);
    action->setShortcut(keys);
    action->setToolTip(QString(action->iconText()) + " (" + keys.toString(QKeySequence::NativeText) + ")");
    connect(action, &QAction::triggered, this, act);
    drawn_.emplace_back(action, icon);
    return action;
}

void MapWindow::UseIcons() {
    for (auto& [action, icon] : drawn_) action->setIcon(IconOf(icon, palette()));
}

void MapWindow::MakePanels() {
    details_->setColumnCount(2);
    details_->setHeaderLabels({tr("Property"), tr("Value")});
    details_->setRootIsDecorated(false);
    details_->setAlternatingRowColors(true);
    details_->setStyleSheet(QStringLiteral("QTreeView::item { padding: 3px 2px; }"));
    details_->setAccessibleName(tr("Selected feature"));
    details_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    QMenu* view = menuBar()->actions().last()->menu();
    auto add = [&](const QString& title, const char* name, Drawn icon, QWidget* content,
                   Qt::DockWidgetArea area) {
        auto* dock = new QDockWidget(title);
        dock->setObjectName(QLatin1String(name));
        dock->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
        dock->setWidget(content);
        addDockWidget(area, dock);
        view->addAction(dock->toggleViewAction());
        drawn_.emplace_back(dock->toggleViewAction(), icon);
        return dock;
    };
    QDockWidget* layers = add(tr("Layers"), "layers", Drawn::Layers, layers_, Qt::LeftDockWidgetArea);
    QDockWidget* feature = add(tr("Feature"), "feature", Drawn::Feature, details_, Qt::RightDockWidgetArea);
    resizeDocks({layers, feature}, {230, 270}, Qt::Horizontal);
    UseIcons();
    ShowSelected(std::nullopt);
}

void MapWindow::MakeStatusLine() {
    statusBar()->addWidget(hovered_, 1);
    statusBar()->addPermanentWidget(place_);
    statusBar()->addPermanentWidget(scale_);
    ShowPlace(std::nullopt);
    ShowScale();
}

void MapWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) UseIcons();
    QMainWindow::changeEvent(event);
}

// --- Files

void MapWindow::ChooseFile() {
    QString folder = file_ ? Text(platform::NativePath(util::FolderOf(file_->path))) : QString();
    QString path = QFileDialog::getOpenFileName(
        this, tr("Open"), folder,
        tr("Drawings and packages (*.vdf *.VDF *.grp *.GRP)") + ";;" + tr("All files (*)"));
    if (!path.isEmpty()) Open(path.toStdString());
}

void MapWindow::Open(const std::string& path) {
    std::uint64_t number = ++opened_;
    file_.reset();
    layers_->SetLayers({});
    map_->SetScene(nullptr);
    QString name = Text(util::FileNameOf(path));
    map_->SetNotice(tr("Reading %1…").arg(name));
    setWindowTitle(name);
    readers_.start([this, number, path, symbols = installation_.Settings().SymbolsDirectory] {
        // The window waits for its readers before it closes, because they post to it.
        auto post = [this, number](auto act) {
            QMetaObject::invokeMethod(
                this,
                [this, number, act = std::move(act)]() mutable {
                    if (number == opened_) act();
                },
                Qt::QueuedConnection);
        };
        try {
            auto file = std::make_shared<MapFile>(ReadMapFile(path, symbols));
            post([this, file] { Show(std::move(*file)); });
        } catch (const std::exception& error) {
            post([this, text = Text(error.what())] { map_->SetNotice(text); });
        }
    });
}

void MapWindow::Show(MapFile file) {
    file_ = std::move(file);
    layers_->SetLayers(file_->scene->Layers());
    if (file_->scene->ItemCount() == 0)
        map_->SetNotice(tr("%1 contains nothing to show.").arg(Text(util::FileNameOf(file_->path))));
    else
        map_->SetScene(file_->scene);
    statusBar()->setToolTip(Text(file_->notice));
    if (!file_->notice.empty()) hovered_->setText(Text(file_->notice).section('\n', 0, 0));
}

void MapWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MapWindow::dropEvent(QDropEvent* event) {
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile()) return Open(url.toLocalFile().toStdString());
}

// --- The map

void MapWindow::ZoomIn() {
    map_->ZoomBy(MapView::zoomStep);
}

void MapWindow::ZoomOut() {
    map_->ZoomBy(1 / MapView::zoomStep);
}

void MapWindow::Fit() {
    map_->Fit();
}

void MapWindow::ZoomToRectangle() {
    map_->ZoomToRectangle();
}

void MapWindow::ShowPlace(std::optional<render::PlanePoint> ground) {
    // The last contents stay for copying.
    if (!ground || !file_) {
        if (!file_) place_->setText(tr("no coordinates"));
        return;
    }
    int decimals = std::max(2, render::DecimalsOf(1 / map_->Shown().Scale()));
    QString x = Text(util::FormatFixed(ground->x, decimals)),
            y = Text(util::FormatFixed(ground->y, decimals));
    place_->setText(x + "  " + y);
    place_->setProperty("copied", QString(x + "," + y));
}

void MapWindow::ShowScale() {
    double scale = map_->ScaleNumber();
    scale_->setText("1 : " + QLocale().toString(scale, 'f', scale < 10 ? 2 : 0));
    scale_->setProperty("copied", "1:" + QString::number(scale, 'f', scale < 10 ? 2 : 0));
    scale_->setEnabled(file_.has_value());
}

void MapWindow::ShowHovered(std::optional<std::size_t> item) {
    hovered_->clear();
    if (item && file_)
        hovered_->setText(Text(file_->scene->Layers()[file_->scene->SourceOf(*item).layer].name));
}

void MapWindow::ShowSelected(std::optional<std::size_t> item) {
    std::uint64_t number = ++asked_;
    details_->clear();
    if (!item || !file_) return AddDetail(tr("Click a feature on the map."), "");
    // A pass over a large file takes a moment.
    readers_.start([this, number, file = *file_, item = *item] {
        render::EntityDetails details;
        try {
            details = file.DetailsOfItem(item);
        } catch (const std::exception& error) {
            details.texts.emplace_back(QT_TR_NOOP("Problem"), error.what());
        }
        QMetaObject::invokeMethod(
            this,
            [this, number, details = std::move(details)] {
                if (number == asked_) ShowDetails(details);
            },
            Qt::QueuedConnection);
    });
}

void MapWindow::ShowDetails(const render::EntityDetails& details) {
    details_->clear();
    AddDetail(tr("Layer"), Text(details.layer));
    AddDetail(tr("Kind"), tr(details.kind.c_str()));
    if (details.length > 0) AddDetail(tr("Length"), Text(LengthInWords(details.length)));
    AddDetail(tr("Vertices"), QLocale().toString(qulonglong(details.vertices)));
    if (!details.handle.empty()) AddDetail(tr("Handle"), Text(details.handle));
    for (const auto& [name, value] : details.texts) AddDetail(tr(name.c_str()), Text(value));
    if (!details.attributes.empty()) AddDetail(tr("Attributes"), "", true);
    for (const auto& [name, value] : details.attributes) AddDetail(Text(name), Text(value));
}

void MapWindow::AddDetail(const QString& name, const QString& value, bool isHead) {
    auto* row = new QTreeWidgetItem(details_, {name, value});
    row->setToolTip(1, value);
    row->setFirstColumnSpanned(value.isEmpty());
    if (!isHead) return;
    QFont bold = details_->font();
    bold.setBold(true);
    row->setFont(0, bold);
}

QWidget* MakeMapWindow(config::Installation& installation, const std::string& path) {
    auto* window = new MapWindow(installation);
    if (!path.empty()) window->Open(path);
    return window;
}

}  // namespace vexlator::desktop
