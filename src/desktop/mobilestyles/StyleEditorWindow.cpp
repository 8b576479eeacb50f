// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/mobilestyles/StyleEditorWindow.h"

#include "background/styling/modGRPstyling.h"
#include "desktop/application/Texts.h"
#include "desktop/mobilestyles/MobileFieldDelegate.h"
#include "desktop/mobilestyles/StyleSample.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Paths.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPainter>
#include <QStatusBar>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>
#include <utility>

namespace vexlator::desktop {

namespace {

using background::MobileField;
using background::MobileStyleFile;

constexpr int mostUndone = 200;
constexpr double sampleEnlargement = 4;

class FileChange : public QUndoCommand {
public:
    FileChange(const QString& what, MobileStyleFile before, MobileStyleFile after,
               std::function<void(MobileStyleFile)> show)
        : QUndoCommand(what), before_(std::move(before)), after_(std::move(after)), show_(std::move(show)) {}
    void undo() override { show_(before_); }
    void redo() override { show_(after_); }

private:
    MobileStyleFile before_, after_;
    std::function<void(MobileStyleFile)> show_;
};

QString Filter() {
    return Texts::tr("Mobile Style File (*.txt)") + QStringLiteral(";;") + Texts::tr("All files (*)");
}

}  // namespace

StyleEditorWindow::StyleEditorWindow() : rows_(file_), table_(new QTableView), told_(new QLabel) {
    setObjectName(QStringLiteral("StyleEditor"));
    undo_.setUndoLimit(mostUndone);
    rows_.edited = [this](std::size_t line, MobileField field, const QString& value) {
        Edit(line, field, value);
    };
    MakeTable();
    MakeActions();
    auto* centre = new QWidget;
    auto* column = new QVBoxLayout(centre);
    column->addWidget(table_, 1);
    column->addLayout(MakeSamples());
    setCentralWidget(centre);
    statusBar()->addWidget(told_, 1);
    connect(&undo_, &QUndoStack::cleanChanged, this, [this] { ShowTitle(); });
    connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { Told(); });
    connect(&rows_, &QAbstractItemModel::dataChanged, this, [this] { Told(); });
    int width = std::max(fontMetrics().averageCharWidth() * 120, bar_->sizeHint().width());
    resize(width, fontMetrics().height() * 32);
    ShowTitle();
    Told();
}

void StyleEditorWindow::MakeTable() {
    table_->setObjectName(QStringLiteral("grdStyles"));
    table_->setAccessibleName(Texts::tr("Mobile styles"));
    table_->setModel(&rows_);
    table_->setItemDelegate(new MobileFieldDelegate(this));
    table_->setIconSize(SampleSize());
    table_->setAlternatingRowColors(true);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                            QAbstractItemView::SelectedClicked | QAbstractItemView::AnyKeyPressed);
    table_->horizontalHeader()->setHighlightSections(false);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 12);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table_->horizontalHeader()->setSectionResizeMode(
        MobileStyleTable::FirstField + static_cast<int>(MobileField::Name), QHeaderView::Stretch);
}

/// The chosen style as it is drawn, and enlarged.
QLayout* StyleEditorWindow::MakeSamples() {
    auto* grid = new QGridLayout;
    const QString captions[] = {Texts::tr("As drawn"), Texts::tr("Four times as large")};
    for (int i = 0; i < 2; ++i) {
        samples_[i] = new QWidget;
        samples_[i]->setObjectName(QStringLiteral("sample%1").arg(i + 1));
        samples_[i]->setAccessibleName(captions[i]);
        samples_[i]->setFixedHeight(fontMetrics().height() * 7);
        samples_[i]->installEventFilter(this);
        grid->addWidget(new QLabel(captions[i]), 0, i);
        grid->addWidget(samples_[i], 1, i);
    }
    return grid;
}

void StyleEditorWindow::MakeActions() {
    QMenu* file = menuBar()->addMenu(Texts::tr("&File"));
    QMenu* edit = menuBar()->addMenu(Texts::tr("&Edit"));
    file->addAction(Texts::tr("&Open…"), QKeySequence::Open, this, [this] { ChooseFile(); });
    QAction* save = file->addAction(Texts::tr("&Save"), QKeySequence::Save, this, [this] { Save(); });
    file->addAction(Texts::tr("Save &as…"), QKeySequence::SaveAs, this, [this] { SaveAs(); });
    file->addSeparator();
    file->addAction(Texts::tr("&Close"), QKeySequence::Close, this, [this] { close(); });
    QAction* undo = undo_.createUndoAction(this, Texts::tr("&Undo"));
    QAction* redo = undo_.createRedoAction(this, Texts::tr("&Redo"));
    undo->setShortcut(QKeySequence::Undo);
    redo->setShortcut(QKeySequence::Redo);
    edit->addActions({undo, redo});
    edit->addSeparator();
    QAction* point = edit->addAction(Texts::tr("Add &point style"), this, [this] { AddStyle("P"); });
    QAction* line = edit->addAction(Texts::tr("Add &line style"), this, [this] { AddStyle("S"); });
    QAction* area = edit->addAction(Texts::tr("Add &area style"), this, [this] { AddStyle("A"); });
    QAction* remove = edit->addAction(Texts::tr("Re&move the style"), QKeySequence::Delete, this,
                                      [this] { RemoveStyle(); });
    bar_ = addToolBar(Texts::tr("Styles"));
    bar_->setObjectName(QStringLiteral("styleBar"));
    bar_->setMovable(false);
    bar_->addActions({save, undo, redo});
    bar_->addSeparator();
    bar_->addActions({point, line, area, remove});
}

// --- Files

bool StyleEditorWindow::Open(const std::string& path) {
    try {
        Show(MobileStyleFile(background::ReadStyleText(path)));
    } catch (const std::exception& error) {
        QMessageBox::warning(this, Texts::tr("Mobile styles"), Text(error.what()));
        return false;
    }
    path_ = path;
    undo_.clear();
    ShowTitle();
    if (rows_.rowCount() > 0) table_->setCurrentIndex(rows_.index(0, MobileStyleTable::FirstField));
    return true;
}

void StyleEditorWindow::ChooseFile() {
    if (!MayClose()) return;
    QString path = QFileDialog::getOpenFileName(this, Texts::tr("Open"),
                                                Text(platform::NativePath(util::FolderOf(path_))), Filter());
    if (!path.isEmpty()) Open(path.toStdString());
}

bool StyleEditorWindow::Save() {
    if (path_.empty()) return SaveAs();
    try {
        platform::ReplaceFile(path_, file_.Bytes());
    } catch (const std::exception& error) {
        QMessageBox::warning(this, Texts::tr("Mobile styles"), Text(error.what()));
        return false;
    }
    undo_.setClean();
    ShowTitle();
    return true;
}

bool StyleEditorWindow::SaveAs() {
    QString path =
        QFileDialog::getSaveFileName(this, Texts::tr("Save"), Text(platform::NativePath(path_)), Filter());
    if (path.isEmpty()) return false;
    std::string before = std::exchange(path_, path.toStdString());
    if (Save()) return true;
    path_ = before;
    return false;
}

bool StyleEditorWindow::MayClose() {
    if (undo_.isClean()) return true;
    auto answer = QMessageBox::question(
        this, Texts::tr("Mobile styles"), Texts::tr("The styles have changed. Save them?"),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && Save());
}

void StyleEditorWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(MayClose());
}

// --- Changes

void StyleEditorWindow::Change(const QString& what, MobileStyleFile after) {
    if (after.Bytes() == file_.Bytes()) return;
    undo_.push(new FileChange(what, file_, std::move(after),
                              [this](MobileStyleFile file) { Show(std::move(file)); }));
}

void StyleEditorWindow::Show(MobileStyleFile file) {
    file_ = std::move(file);
    rows_.Refresh();
    Told();
}

void StyleEditorWindow::Edit(std::size_t line, MobileField field, const QString& value) {
    MobileStyleFile after = file_;
    try {
        after.SetField(line, field, value.toStdString());
    } catch (const std::exception& error) {
        statusBar()->showMessage(Text(error.what()), 6000);
        return;
    }
    Change(Texts::tr("change of a style"), std::move(after));
}

/// At the end: the numbers of the others stay, which packages hold.
void StyleEditorWindow::AddStyle(const char* type) {
    MobileStyleFile after = file_;
    after.InsertStyle(after.LineCount(), Texts::tr("New style").toStdString(), type);
    Change(Texts::tr("new style"), std::move(after));
    QModelIndex name = rows_.index(rows_.rowCount() - 1, MobileStyleTable::FirstField);
    table_->setCurrentIndex(name);
    table_->edit(name);
}

void StyleEditorWindow::RemoveStyle() {
    QModelIndex current = table_->currentIndex();
    if (!current.isValid()) return;
    std::size_t line = rows_.LineOf(current.row());
    bool isLast = line + 1 == file_.LineCount();
    QString question = Texts::tr(
        "The styles behind this one get other numbers, so that packages made "
        "before show other styles. Remove it?");
    if (!isLast && QMessageBox::question(this, Texts::tr("Mobile styles"), question) != QMessageBox::Yes)
        return;
    MobileStyleFile after = file_;
    after.RemoveLine(line);
    Change(Texts::tr("removal of a style"), std::move(after));
    int row = std::min(rows_.RowOf(line), rows_.rowCount() - 1);
    table_->setCurrentIndex(rows_.index(row, MobileStyleTable::FirstField));
}

// --- What is shown

void StyleEditorWindow::ShowTitle() {
    QString name = path_.empty() ? Texts::tr("new file") : Text(util::FileNameOf(path_));
    setWindowTitle(name + QStringLiteral("[*] – ") + Texts::tr("Mobile styles"));
    setWindowModified(!undo_.isClean());
}

void StyleEditorWindow::Told() {
    for (QWidget* sample : samples_) sample->update();
    QModelIndex current = table_->currentIndex();
    if (rows_.rowCount() == 0)
        told_->setText(Texts::tr("There are no styles yet. Add one."));
    else
        told_->setText(current.isValid() ? Text(file_.FaultOf(rows_.LineOf(current.row()))) : QString());
}

bool StyleEditorWindow::eventFilter(QObject* watched, QEvent* event) {
    bool isSample = watched == samples_[0] || watched == samples_[1];
    if (!isSample || event->type() != QEvent::Paint) return QMainWindow::eventFilter(watched, event);
    QModelIndex current = table_->currentIndex();
    if (!current.isValid() || current.row() >= rows_.rowCount()) return true;
    auto* sample = static_cast<QWidget*>(watched);
    QPainter painter(sample);
    std::size_t line = rows_.LineOf(current.row());
    PaintStyleSample(painter, sample->rect(), Text(file_.Field(line, MobileField::Type)),
                     background::LookOfFields(file_.FieldsOf(line)),
                     sample == samples_[0] ? 1 : sampleEnlargement);
    return true;
}

}  // namespace vexlator::desktop
