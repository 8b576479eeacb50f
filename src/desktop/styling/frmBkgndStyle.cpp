// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/styling/frmBkgndStyle.h"

#include "desktop/application/Application.h"
#include "desktop/application/ProgressPanel.h"
#include "desktop/application/Texts.h"
#include "desktop/map/MapView.h"
#include "desktop/styling/StylingForm.h"
#include "util/Paths.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <algorithm>
#include <set>
#include <utility>

namespace vexlator::desktop {

namespace {

using background::BackgroundStyle;
using background::ListedName;
using background::StyleColumn;
using background::StyledState;

constexpr int mostUndone = 200;

class StyleChange : public QUndoCommand {
public:
    StyleChange(const QString& what, StyledState before, StyledState after,
                std::function<void(const StyledState&)> show)
        : QUndoCommand(what), before_(std::move(before)), after_(std::move(after)), show_(std::move(show)) {}
    void undo() override { show_(before_); }
    void redo() override { show_(after_); }

private:
    StyledState before_, after_;
    std::function<void(const StyledState&)> show_;
};

std::vector<ListedName> NamesIn(const QListWidget& list) {
    std::vector<ListedName> names;
    for (int i = 0; i < list.count(); ++i)
        names.push_back({list.item(i)->text().toStdString(), list.item(i)->checkState() == Qt::Checked});
    return names;
}

void ShowNames(QListWidget& list, const std::vector<ListedName>& names) {
    if (NamesIn(list) == names) return;
    list.clear();
    for (const ListedName& name : names) {
        auto* item = new QListWidgetItem(Text(name.name), &list);
        item->setFlags((item->flags() | Qt::ItemIsUserCheckable) & ~Qt::ItemIsDropEnabled);
        item->setCheckState(name.selected ? Qt::Checked : Qt::Unchecked);
    }
}

}  // namespace

frmBkgndStyle::frmBkgndStyle(config::Installation& installation, Convert convert, QWidget* parent)
    : QMainWindow(parent),
      installation_(installation),
      convert_(std::move(convert)),
      form_(new StylingForm(table_)),
      progress_(new ProgressPanel(this)),
      run_(installation, BoxesOver([this] { return this; },
                                   [this](const QString& line) { statusBar()->showMessage(line, 8000); })) {
    setObjectName(QStringLiteral("frmBkgndStyle"));
    setAttribute(Qt::WA_DeleteOnClose);
    setCentralWidget(form_);
    state_.style.rows = {background::DefaultRow()};
    savedStyle_ = state_.style;
    undo_.setUndoLimit(mostUndone);
    progress_->hide();
    statusBar();  // takes its place before anything is shown in it
    form_->map->SetNotice(Texts::tr("Preview a file to see the style on it."));
    form_->btnQuickConvert->setVisible(static_cast<bool>(convert_));
    form_->chkSimple->setChecked(installation_.ReadIniFlag("GRP", "SimpleStyling"));
    MakeMenus();
    ConnectRows();
    ConnectLists();
    ConnectDrawing();
    ConnectFiles();
    ConnectTimers();
    ReadMobileStyles();
    Show(state_);
    resize(fontMetrics().averageCharWidth() * 190, fontMetrics().height() * 46);
}

frmBkgndStyle::~frmBkgndStyle() {
    // It tells of a lost selection when it goes.
    form_->map->selected = nullptr;
}

void frmBkgndStyle::MakeMenus() {
    QMenu* file = menuBar()->addMenu(Texts::tr("&File"));
    openAction_ =
        file->addAction(Texts::tr("&Open style…"), QKeySequence::Open, this, [this] { ChooseStyle(); });
    file->addAction(Texts::tr("&Save style…"), QKeySequence::Save, this, [this] { SaveStyle(); });
    file->addSeparator();
    previewAction_ = file->addAction(Texts::tr("&Preview a file…"), Qt::CTRL | Qt::SHIFT | Qt::Key_O, this,
                                     [this] { ChoosePreview(); });
    saveDrawingAction_ = file->addAction(Texts::tr("Save &drawing as…"), this, [this] { SaveDrawing(); });
    file->addSeparator();
    file->addAction(Texts::tr("&Close"), QKeySequence::Close, this, [this] { close(); });
    QMenu* edit = menuBar()->addMenu(Texts::tr("&Edit"));
    undoAction_ = edit->addAction(Texts::tr("&Undo"), QKeySequence::Undo, this, [this] { undo_.undo(); });
    redoAction_ = edit->addAction(Texts::tr("&Redo"), QKeySequence::Redo, this, [this] { undo_.redo(); });
    edit->addSeparator();
    edit->addAction(Texts::tr("Re&move rows"), Qt::CTRL | Qt::Key_Delete, this, [this] { RemoveRows(); });
    QMenu* view = menuBar()->addMenu(Texts::tr("&View"));
    view->addAction(Texts::tr("Zoom &in"), QKeySequence::ZoomIn, this,
                    [this] { form_->map->ZoomBy(MapView::zoomStep); });
    view->addAction(Texts::tr("Zoom &out"), QKeySequence::ZoomOut, this,
                    [this] { form_->map->ZoomBy(1 / MapView::zoomStep); });
    view->addAction(Texts::tr("Show a&ll"), Qt::CTRL | Qt::Key_0, this, [this] { form_->map->Fit(); });
    view->addAction(Texts::tr("Zoom to &rectangle"), Qt::CTRL | Qt::Key_R, this,
                    [this] { form_->map->ZoomToRectangle(); });
}

// --- Changes

void frmBkgndStyle::Change(const QString& what, StyledState after) {
    bool isSeen = after.changes != state_.changes || ListedStyle(after.style) != ListedStyle(state_.style);
    if (!isSeen) return;
    undo_.push(new StyleChange(what, state_, std::move(after), [this](const auto& state) { Show(state); }));
}

void frmBkgndStyle::ChangeStyle(const QString& what, const std::function<void(BackgroundStyle&)>& change) {
    StyledState after = state_;
    change(after.style);
    Change(what, std::move(after));
}

void frmBkgndStyle::Show(const StyledState& state) {
    if (&state != &state_) state_ = state;
    bool isSimple = form_->chkSimple->isChecked();
    table_.UseSimple(isSimple);
    for (StyleColumn column : {StyleColumn::Lines, StyleColumn::Areas})
        form_->grdStyle->setColumnHidden(static_cast<int>(column), isSimple);
    table_.Show(state_.style.rows);
    ShowLists();
    ShowTitle();
    UpdateControls();
    Restyle();
    CatchUp();
}

/// A cell among several that are selected changes all of them.
void frmBkgndStyle::EditCell(int row, StyleColumn column, const std::string& text) {
    std::vector<int> rows = {row};
    QModelIndexList selected = form_->grdStyle->selectionModel()->selectedIndexes();
    if (selected.contains(table_.index(row, static_cast<int>(column))))
        for (const QModelIndex& index : selected)
            if (StyleTable::ColumnOf(index) == column) rows.push_back(index.row());
    ChangeStyle(Texts::tr("change of a style"), [&](auto& style) {
        for (int each : rows) CellOf(style.rows[static_cast<std::size_t>(each)], column) = text;
    });
}

/// Cells that say nothing leave a layer to the DEFAULT row.
void frmBkgndStyle::ClearCells() {
    QModelIndexList selected = form_->grdStyle->selectionModel()->selectedIndexes();
    ChangeStyle(Texts::tr("clearing of cells"), [&](auto& style) {
        for (const QModelIndex& index : selected)
            if (IsLook(StyleTable::ColumnOf(index)))
                CellOf(style.rows[static_cast<std::size_t>(index.row())], StyleTable::ColumnOf(index))
                    .clear();
    });
}

void frmBkgndStyle::GetLayers() {
    ChangeStyle(Texts::tr("rows for layers"),
                [this](auto& style) { AddMissingLayers(style.rows, shown_->layers); });
}

void frmBkgndStyle::Reset() {
    ChangeStyle(Texts::tr("reset"), [this](auto& style) {
        ResetStyle(style, shown_ ? shown_->layers : std::vector<std::string>());
    });
}

void frmBkgndStyle::UseSimple(bool isOn) {
    try {
        installation_.WriteIni("GRP", "SimpleStyling", isOn ? "1" : "0");
    } catch (const std::exception& error) {
        Tell(Text(error.what()));
    }
    onDevice_.reset();
    Show(state_);
}

void frmBkgndStyle::RemoveRows() {
    std::set<int> rows;
    for (const QModelIndex& index : form_->grdStyle->selectionModel()->selectedIndexes())
        rows.insert(index.row());
    ChangeStyle(Texts::tr("removal of rows"), [&](auto& style) {
        for (auto row = rows.rbegin(); row != rows.rend(); ++row) style.rows.erase(style.rows.begin() + *row);
    });
}

void frmBkgndStyle::TakeLists() {
    if (showsLists_) return;
    ChangeStyle(Texts::tr("choice of attributes"), [this](auto& style) {
        style.optimisedAttributes = NamesIn(*form_->lstOptimisedXprops);
        style.annotationFields = NamesIn(*form_->lstAnnotationFields);
    });
}

/// What is typed counts when the field is left, or when it is needed before.
void frmBkgndStyle::TakeHeight() {
    if (showsLists_ || !form_->txtAnnoHeight->hasAcceptableInput()) return;
    ChangeStyle(Texts::tr("annotation height"), [this](auto& style) {
        style.fixedAnnotationHeight = form_->txtAnnoHeight->text().toStdString();
    });
}

/// The names of the drawing's attributes stand in the lists too.
BackgroundStyle frmBkgndStyle::ListedStyle(BackgroundStyle style) const {
    if (!shown_) return style;
    style.optimisedAttributes = WithNames(std::move(style.optimisedAttributes), shown_->attributes);
    style.annotationFields = WithNames(std::move(style.annotationFields), shown_->attributes);
    return style;
}

void frmBkgndStyle::ShowLists() {
    const BackgroundStyle style = ListedStyle(state_.style);
    const std::vector<std::string> attributes = shown_ ? shown_->attributes : std::vector<std::string>();
    showsLists_ = true;
    ShowNames(*form_->lstOptimisedXprops, style.optimisedAttributes);
    ShowNames(*form_->lstAnnotationFields, style.annotationFields);
    form_->lblLayerOn->setText(
        style.layerOnField.empty()
            ? Texts::tr("The style does not relayer.")
            : Texts::tr("The style relayers by \"%1\".").arg(Text(style.layerOnField)));
    form_->cboSearch->clear();
    form_->cboSearch->addItem(Text(background::noSearchField));
    for (const std::string& name : attributes) form_->cboSearch->addItem(Text(name));
    QString search = Text(style.searchOnField);
    if (!search.isEmpty() && form_->cboSearch->findText(search) < 0) form_->cboSearch->addItem(search);
    form_->cboSearch->setCurrentIndex(search.isEmpty() ? 0 : form_->cboSearch->findText(search));
    form_->txtAnnoHeight->setText(Text(style.fixedAnnotationHeight));
    showsLists_ = false;
}

// --- What is shown of it

void frmBkgndStyle::ShowTitle() {
    auto marked = [](const QString& name, bool isSaved) { return isSaved ? name : name + QLatin1Char('*'); };
    QString title = marked(styleFile_.empty() ? Texts::tr("new style") : Text(util::FileNameOf(styleFile_)),
                           StyleIsSaved());
    if (shown_)
        title +=
            QStringLiteral(" – ") + marked(Text(util::FileNameOf(source_)), state_.changes == savedChanges_);
    setWindowTitle(title + QStringLiteral(" – ") + Texts::tr("Background styling"));
}

bool frmBkgndStyle::StyleIsSaved() const {
    return ListedStyle(state_.style) == ListedStyle(savedStyle_);
}

void frmBkgndStyle::UpdateControls() {
    bool isFree = !run_.IsRunning(), hasDrawing = isFree && shown_ != nullptr;
    for (QWidget* control : {form_->btnApplyAnno, form_->btnGetLayers, form_->btnLayerByXProp,
                             form_->cmdTools, form_->btnQuickConvert, form_->btnDevice})
        control->setEnabled(hasDrawing);
    form_->lstXprops->setEnabled(hasDrawing);
    for (QWidget* control : {form_->btnPreview, form_->btnStyleSerach}) control->setEnabled(isFree);
    for (QAction* action : {openAction_, previewAction_}) action->setEnabled(isFree);
    saveDrawingAction_->setEnabled(hasDrawing);
    form_->btnApply->setEnabled(shown_ != nullptr);
    undoAction_->setEnabled(isFree && undo_.canUndo());
    redoAction_->setEnabled(isFree && undo_.canRedo());
    auto named = [](const QString& action, const QString& what) {
        return what.isEmpty() ? action : action + QStringLiteral(" (") + what + QLatin1Char(')');
    };
    undoAction_->setText(named(Texts::tr("&Undo"), undo_.undoText()));
    redoAction_->setText(named(Texts::tr("&Redo"), undo_.redoText()));
}

void frmBkgndStyle::Tell(const QString& text) {
    QMessageBox::information(this, Texts::tr("Background styling"), text);
}

bool frmBkgndStyle::Asks(const QString& question) {
    return QMessageBox::question(this, Texts::tr("Background styling"), question) == QMessageBox::Yes;
}

void frmBkgndStyle::closeEvent(QCloseEvent* event) {
    TakeHeight();
    event->setAccepted(MayLeaveStyle() && MayLeaveDrawing());
}

}  // namespace vexlator::desktop
