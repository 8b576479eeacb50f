// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/georef/PointsPanel.h"

#include "desktop/application/Texts.h"
#include "desktop/georef/PointsModel.h"
#include "desktop/georef/Said.h"
#include "georef/Ground.h"

#include <QCheckBox>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

namespace vexlator::desktop {

namespace {

QPushButton* NamedButton(const char* name, const QString& text, const QString& help) {
    auto* button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(help);
    return button;
}

QCheckBox* NamedBox(const char* name, const QString& text, const QString& help) {
    auto* box = new QCheckBox(text);
    box->setObjectName(QLatin1String(name));
    box->setToolTip(help);
    return box;
}

QString ListText(const georef::PointEntries& points) {
    return Text(georef::PointText(points)).remove('\r');
}

/// A line that is still being typed is no point yet.
georef::PointEntries PointsIn(const QString& text) {
    georef::PointEntries points = georef::ParsePointText(text.toStdString());
    while (!points.empty() && points.back() == georef::PointEntry()) points.pop_back();
    return points;
}

}  // namespace

PointsPanel::PointsPanel(PointsModel& model, QWidget* parent)
    : QWidget(parent),
      chkRotate(NamedBox("chkRotate", Texts::tr("&Rotate the image so that north is up"),
                         Texts::tr("Makes a turned copy of the image, with a world file of its own"))),
      chkSecondOrder(NamedBox("chkSecondOrder", Texts::tr("Fit of &second order"),
                              Texts::tr("Bends the image; needs six points, and the image to be rotated"))),
      btnGeoRef(NamedButton("btnGeoRef", Texts::tr("&Georeference"),
                            Texts::tr("Writes the image's world file from the control points"))),
      btnCarve(NamedButton("btnCarve", Texts::tr("&Carve"),
                           Texts::tr("Cuts an image that has a world file into tiles of 400 pixels"))),
      btnCancel(NamedButton("btnCancel", Texts::tr("Cancel"), Texts::tr("Ends the work on the image"))),
      model_(model),
      sorted_(new QSortFilterProxyModel(this)),
      fit_(new QLabel) {
    fit_->setObjectName(QStringLiteral("lblFit"));
    fit_->setWordWrap(true);
    fit_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* tabs = new QTabWidget;
    tabs->addTab(MakeTable(), Texts::tr("&Points"));
    tabs->addTab(MakeList(), Texts::tr("&List"));
    auto* column = new QVBoxLayout(this);
    column->addWidget(tabs, 1);
    column->addWidget(MakeGround());
    column->addWidget(fit_);
    column->addWidget(chkSecondOrder);
    column->addWidget(chkRotate);
    column->addWidget(MakeButtons());
    connect(chkSecondOrder, &QCheckBox::toggled, this, [this](bool isOn) {
        model_.SetOrder(isOn ? georef::Fit::Order::Second : georef::Fit::Order::First);
    });
    Follow();
}

PointsPanel::~PointsPanel() {
    // The table tells of a lost selection when it goes.
    selected = nullptr;
}

QWidget* PointsPanel::MakeTable() {
    sorted_->setSourceModel(&model_);
    sorted_->setSortRole(PointsModel::sortRole);
    sorted_->sort(PointsModel::ErrorPixels, Qt::DescendingOrder);
    table_ = new QTableView;
    table_->setObjectName(QStringLiteral("tblPoints"));
    table_->setAccessibleName(Texts::tr("Control points, worst first"));
    table_->setModel(sorted_);
    table_->setSortingEnabled(true);
    table_->sortByColumn(PointsModel::ErrorPixels, Qt::DescendingOrder);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setAlternatingRowColors(true);
    table_->setTabKeyNavigation(false);
    table_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table_->verticalHeader()->hide();
    if (auto* corner = table_->findChild<QAbstractButton*>())
        corner->setAccessibleName(Texts::tr("All points"));
    constexpr int shownCharacters = 86;
    table_->setMinimumWidth(fontMetrics().averageCharWidth() * shownCharacters);
    // The errors are always seen.
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table_->horizontalHeader()->setSectionResizeMode(PointsModel::Ground, QHeaderView::Stretch);
    table_->installEventFilter(this);
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) {
                if (isFollowing_ || !current.isValid()) return;
                Select(sorted_->mapToSource(current).row() + 1);
                if (selected) selected(selected_);
            });
    return table_;
}

QWidget* PointsPanel::MakeList() {
    auto* page = new QWidget;
    txtControl_ = new QPlainTextEdit;
    txtControl_->setObjectName(QStringLiteral("txtControl"));
    txtControl_->setAccessibleName(Texts::tr("Control points, a line each"));
    txtControl_->setTabChangesFocus(true);
    txtControl_->setUndoRedoEnabled(false);  // the window's undo goes further
    txtControl_->installEventFilter(this);
    auto* label = new QLabel(Texts::tr("Pixel (&1P=x,y) and ground (1G=x,y) of each point:"));
    label->setWordWrap(true);
    label->setBuddy(txtControl_);
    auto* column = new QVBoxLayout(page);
    column->addWidget(label);
    column->addWidget(txtControl_, 1);
    connect(txtControl_, &QPlainTextEdit::textChanged, this, [this] { TakeList(); });
    return page;
}

QWidget* PointsPanel::MakeGround() {
    auto* group = new QWidget;
    groundLabel_ = new QLabel;
    txtGround_ = new QLineEdit;
    txtGround_->setObjectName(QStringLiteral("txtGround"));
    txtGround_->setAccessibleName(Texts::tr("Ground position"));
    txtGround_->setPlaceholderText(Texts::tr("412000, 284200 or TG 514 131 or 52°28'N 1°43'E"));
    groundLabel_->setBuddy(txtGround_);
    reading_ = new QLabel;
    reading_->setWordWrap(true);
    auto* column = new QVBoxLayout(group);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(groundLabel_);
    column->addWidget(txtGround_);
    column->addWidget(reading_);
    connect(txtGround_, &QLineEdit::textChanged, this, [this] { ShowReading(); });
    connect(txtGround_, &QLineEdit::editingFinished, this, [this] { EnterGround(); });
    connect(txtGround_, &QLineEdit::returnPressed, this, [this] {
        if (entered) entered();
    });
    return group;
}

QWidget* PointsPanel::MakeButtons() {
    auto* group = new QWidget;
    auto* row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(btnGeoRef, 1);
    row->addWidget(btnCarve, 1);
    row->addWidget(btnCancel, 1);
    return group;
}

void PointsPanel::SetRunning(bool isRunning, bool hasImage) {
    btnGeoRef->setVisible(!isRunning);
    btnCarve->setVisible(!isRunning);
    btnCancel->setVisible(isRunning);
    for (QWidget* widget : {static_cast<QWidget*>(btnGeoRef), static_cast<QWidget*>(btnCarve),
                            static_cast<QWidget*>(txtControl_)})
        widget->setEnabled(hasImage);
}

// --- After changes

void PointsPanel::Follow() {
    isFollowing_ = true;
    if (selected_ > model_.rowCount()) selected_ = 0;
    FollowTable();
    FollowList();
    FollowGround();
    chkSecondOrder->setChecked(model_.Order() == georef::Fit::Order::Second);
    QString said = Said(model_.Standing().said);
    bool bends = model_.Standing().fit && model_.Order() == georef::Fit::Order::Second;
    if (bends && !chkRotate->isChecked())
        said += Texts::tr("; it bends the image, which therefore has to be rotated");
    fit_->setText(said);
    isFollowing_ = false;
}

void PointsPanel::FollowTable() {
    if (selected_ == 0) return table_->selectionModel()->clear();
    QModelIndex row = sorted_->mapFromSource(model_.index(selected_ - 1, PointsModel::Number));
    if (table_->currentIndex().row() != row.row()) table_->setCurrentIndex(row);
}

void PointsPanel::FollowList() {
    QString wanted = ListText(model_.Points());
    if (PointsIn(txtControl_->toPlainText()) != PointsIn(wanted)) txtControl_->setPlainText(wanted);
}

void PointsPanel::FollowGround() {
    bool isPoint = selected_ > 0;
    groundLabel_->setText(isPoint ? Texts::tr("Gro&und of point %1:").arg(selected_) : Texts::tr("Gro&und:"));
    txtGround_->setEnabled(isPoint);
    if (!isPoint) txtGround_->setModified(false);
    QString ground = isPoint ? Text(model_.Points()[std::size_t(selected_) - 1].ground) : QString();
    if (!txtGround_->isModified() && txtGround_->text() != ground) txtGround_->setText(ground);
    ShowReading();
}

void PointsPanel::Select(int number) {
    if (number == selected_) return;
    EnterGround();
    selected_ = number;
    ++typing_;
    txtGround_->setModified(false);
    Follow();
}

void PointsPanel::ShowReading() {
    std::string typed = txtGround_->text().toStdString();
    bool isPoint = selected_ > 0;
    reading_->setText(!isPoint        ? Texts::tr("Click on the image to set a point.")
                      : typed.empty() ? Texts::tr("Type its position, or take it from the map.")
                                      : Said(georef::ReadGround(typed).said));
}

// --- What people change

void PointsPanel::TakeList() {
    if (isFollowing_) return;
    georef::PointEntries points = PointsIn(txtControl_->toPlainText());
    const georef::PointEntries& before = model_.Points();
    for (std::size_t i = 0; i < std::min(points.size(), before.size()); ++i)
        points[i].isLeftOut = before[i].isLeftOut;
    // A gesture of its own: what is typed in one go is undone in one.
    model_.SetPoints(std::move(points), Texts::tr("Edit the list"), -1 - typing_);
}

void PointsPanel::EnterGround() {
    if (selected_ == 0 || !txtGround_->isModified()) return;
    txtGround_->setModified(false);
    model_.SetGround(selected_, txtGround_->text().trimmed().toStdString());
    FollowGround();
}

void PointsPanel::TypeGround(const QString& text) {
    txtGround_->setFocus();
    if (text.isEmpty()) return txtGround_->selectAll();
    txtGround_->clear();
    txtGround_->insert(text);
    txtGround_->setModified(true);
}

bool PointsPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && watched == txtControl_) ++typing_;
    bool isKey = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    if (!isKey) return false;
    auto* key = static_cast<QKeyEvent*>(event);
    if (watched == txtControl_ && event->type() == QEvent::ShortcutOverride &&
        (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo))) {
        key->ignore();
        return true;
    }
    if (watched == table_ && event->type() == QEvent::KeyPress && key->key() == Qt::Key_Delete &&
        selected_ > 0) {
        model_.Remove(selected_);
        return true;
    }
    return false;
}

}  // namespace vexlator::desktop
