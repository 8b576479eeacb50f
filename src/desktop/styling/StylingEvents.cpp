// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/application/Texts.h"
#include "desktop/map/MapView.h"
#include "desktop/styling/LookDelegate.h"
#include "desktop/styling/StylingForm.h"
#include "desktop/styling/frmBkgndStyle.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QFileSystemWatcher>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <functional>

/// What the styling window does when somebody clicks, types or drops something.
namespace vexlator::desktop {

namespace {

constexpr int flashTime = 220, deviceDelay = 500, replacingTime = 200;  ///< ms

bool IsEnter(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// For those who do not drag.
void MoveItem(QListWidget& list, int by) {
    int row = list.currentRow(), target = row + by;
    if (row < 0 || target < 0 || target >= list.count()) return;
    list.insertItem(target, list.takeItem(row));
    list.setCurrentRow(target);
}

/// Where the widget has the keyboard.
void AddKey(QWidget* widget, const QKeySequence& key, const std::function<void()>& act) {
    auto* action = new QAction(widget);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    widget->addAction(action);
    QObject::connect(action, &QAction::triggered, widget, act);
}

}  // namespace

void frmBkgndStyle::OnClick(QPushButton* button, void (frmBkgndStyle::*act)()) {
    connect(button, &QPushButton::clicked, this, [this, act] { (this->*act)(); });
}

void frmBkgndStyle::ConnectRows() {
    OnClick(form_->btnApply, &frmBkgndStyle::Restyle);
    OnClick(form_->btnGetLayers, &frmBkgndStyle::GetLayers);
    OnClick(form_->btnReset, &frmBkgndStyle::Reset);
    connect(form_->chkSimple, &QCheckBox::toggled, this, [this](bool isOn) { UseSimple(isOn); });
    table_.edited = [this](int row, background::StyleColumn column, const std::string& text) {
        EditCell(row, column, text);
    };
    connect(form_->grdStyle, &QTableView::clicked, this, [this](const QModelIndex& index) {
        bool isPlain = QApplication::keyboardModifiers() == Qt::NoModifier;
        if (isPlain && IsLook(StyleTable::ColumnOf(index))) form_->grdStyle->edit(index);
    });
    form_->grdStyle->viewport()->installEventFilter(this);
    AddKey(form_->grdStyle, Qt::Key_Delete, [this] { ClearCells(); });
    connect(form_->grdStyle, &QTableView::entered, this,
            [this](const QModelIndex& index) { Flash(index.row()); });
    connect(form_->grdStyle->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& index) {
                if (form_->grdStyle->hasFocus()) Flash(index.row());
            });
}

void frmBkgndStyle::ConnectLists() {
    for (QListWidget* list : {form_->lstOptimisedXprops, form_->lstAnnotationFields}) {
        connect(list, &QListWidget::itemChanged, this, [this] { TakeLists(); });
        // The row that was dragged is in the list twice for a moment.
        auto later = [this] { QTimer::singleShot(0, this, [this] { TakeLists(); }); };
        connect(list->model(), &QAbstractItemModel::rowsMoved, this, later);
        connect(list->model(), &QAbstractItemModel::rowsRemoved, this, [this, later] {
            if (!showsLists_) later();
        });
    }
    QListWidget* fields = form_->lstAnnotationFields;
    AddKey(fields, Qt::ALT | Qt::Key_Up, [fields] { MoveItem(*fields, -1); });
    AddKey(fields, Qt::ALT | Qt::Key_Down, [fields] { MoveItem(*fields, 1); });
    connect(form_->cboSearch, &QComboBox::activated, this, [this](int chosen) {
        ChangeStyle(Texts::tr("search attribute"), [&](auto& style) {
            style.searchOnField = chosen == 0 ? "" : form_->cboSearch->itemText(chosen).toStdString();
        });
    });
    connect(form_->txtAnnoHeight, &QLineEdit::editingFinished, this, [this] { TakeHeight(); });
}

void frmBkgndStyle::ConnectDrawing() {
    OnClick(form_->btnApplyAnno, &frmBkgndStyle::ShowAnnotation);
    OnClick(form_->btnLayerByXProp, &frmBkgndStyle::ListAttributes);
    OnClick(form_->cmdTools, &frmBkgndStyle::RunTool);
    OnClick(form_->btnDevice, &frmBkgndStyle::ShowDevice);
    connect(form_->lstXprops, &QListWidget::itemClicked, this, [this] { AskToRelayer(); });
    form_->lstXprops->installEventFilter(this);
    form_->map->selected = [this](auto item) { ShowEntity(item); };
    form_->map->installEventFilter(this);
}

void frmBkgndStyle::ConnectFiles() {
    OnClick(form_->btnStyleSerach, &frmBkgndStyle::ChooseStyle);
    connect(form_->btnSave, &QPushButton::clicked, this, [this] { SaveStyle(); });
    OnClick(form_->btnPreview, &frmBkgndStyle::ChoosePreview);
    OnClick(form_->btnQuickConvert, &frmBkgndStyle::QuickConvert);
    OnClick(form_->btnMobileStyleEditor, &frmBkgndStyle::EditMobileStyles);
    form_->looks->selectFile = [this] { SelectMobileStyles(); };
    // A file that is being replaced is not there for a moment.
    auto readLater = [this] { mobileLater_.start(); };
    connect(&mobileWatch_, &QFileSystemWatcher::fileChanged, this, readLater);
    connect(&mobileWatch_, &QFileSystemWatcher::directoryChanged, this, readLater);
    setAcceptDrops(true);
}

void frmBkgndStyle::ConnectTimers() {
    flash_.setInterval(flashTime);
    connect(&flash_, &QTimer::timeout, this, [this] { ShowFlash(); });
    deviceLater_.setSingleShot(true);
    deviceLater_.setInterval(deviceDelay);
    connect(&deviceLater_, &QTimer::timeout, this, [this] { ShowDevice(); });
    mobileLater_.setSingleShot(true);
    mobileLater_.setInterval(replacingTime);
    connect(&mobileLater_, &QTimer::timeout, this, [this] { ReadMobileStyles(); });
    connect(&undo_, &QUndoStack::indexChanged, this, [this] { UpdateControls(); });
}

bool frmBkgndStyle::eventFilter(QObject* watched, QEvent* event) {
    if (watched == form_->grdStyle->viewport() && event->type() == QEvent::Leave) flashRow_ = -1;
    bool isKey = event->type() == QEvent::KeyPress;
    if (watched == form_->lstXprops && isKey && IsEnter(static_cast<QKeyEvent*>(event)->key()))
        AskToRelayer();
    bool isPick = watched == form_->map && picksPlace_ && PicksPlace(event);
    return isPick || QMainWindow::eventFilter(watched, event);
}

/// A click on the map says which place is to be moved; Enter means its middle.
bool frmBkgndStyle::PicksPlace(QEvent* event) {
    const render::View& view = form_->map->Shown();
    if (event->type() == QEvent::MouseButtonPress) return true;
    if (event->type() == QEvent::MouseButtonRelease) {
        double ratio = form_->map->devicePixelRatioF();
        QPointF at = static_cast<QMouseEvent*>(event)->position() * ratio;
        Move(view.ToGround({at.x(), at.y()}));
        return true;
    }
    if (event->type() != QEvent::KeyPress) return false;
    int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape) EndPicking();
    if (IsEnter(key)) Move(view.Centre());
    return key == Qt::Key_Escape || IsEnter(key);
}

void frmBkgndStyle::dragEnterEvent(QDragEnterEvent* event) {
    QList<QUrl> urls = event->mimeData()->urls();
    if (urls.size() == 1 && urls.front().isLocalFile()) event->acceptProposedAction();
}

void frmBkgndStyle::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    // The program that the file comes from waits for the end of this.
    QTimer::singleShot(0, this, [this, path = event->mimeData()->urls().front().toLocalFile()] {
        bool isStyle = path.endsWith(QLatin1String(".bsf"), Qt::CaseInsensitive);
        if (isStyle ? MayLeaveStyle() : MayLeaveDrawing())
            isStyle ? LoadStyleFile(path.toStdString()) : OpenDrawing(path.toStdString());
    });
}

}  // namespace vexlator::desktop
