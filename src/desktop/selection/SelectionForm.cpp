// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/selection/SelectionForm.h"

#include "desktop/application/ProgressPanel.h"
#include "desktop/application/Texts.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

namespace vexlator::desktop {

SelectionForm::SelectionForm(QAbstractItemModel& rows)
    : lstFiles(new QTreeView), progress(new ProgressPanel) {
    lstFiles->setObjectName(QStringLiteral("lstFiles"));
    lstFiles->setAccessibleName(Texts::tr("Files to convert"));
    lstFiles->setModel(&rows);
    lstFiles->setRootIsDecorated(false);
    lstFiles->setUniformRowHeights(true);
    lstFiles->setAlternatingRowColors(true);
    lstFiles->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstFiles->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    sources_ = Sources();
    package_ = Package();
    auto* column = new QVBoxLayout(this);
    column->addWidget(sources_, 1);
    column->addWidget(package_);
    column->addWidget(progress);
    column->addWidget(Commands());
    int space = fontMetrics().height() / 2;
    column->setSpacing(space);
    column->setContentsMargins(2 * space, space, 2 * space, 2 * space);
    setTabOrder(btnBrowseSave, chkAll);
    SetRunning(false);
}

QLineEdit* SelectionForm::Edit(const char* name, const char* purpose) {
    auto* edit = new QLineEdit;
    edit->setObjectName(QString::fromLatin1(name));
    edit->setAccessibleName(Texts::tr(purpose));
    edit->setAcceptDrops(false);  // what is dropped goes to the window
    return edit;
}

QCheckBox* SelectionForm::Check(const char* name, const char* caption, const char* help) {
    auto* box = new QCheckBox(QString::fromUtf8(caption));
    box->setObjectName(QString::fromLatin1(name));
    box->setToolTip(Texts::tr(help));
    return box;
}

QPushButton* SelectionForm::Button(const char* name, const char* caption, const char* help) {
    auto* button = new QPushButton(QString::fromUtf8(caption));
    button->setObjectName(QString::fromLatin1(name));
    if (*help != '\0') button->setToolTip(Texts::tr(help));
    return button;
}

QLabel* SelectionForm::Label(const char* name, const char* caption, QWidget* buddy) {
    auto* label = new QLabel(QString::fromUtf8(caption));
    label->setObjectName(QString::fromLatin1(name));
    label->setBuddy(buddy);
    return label;
}

QWidget* SelectionForm::Sources() {
    txtSource = Edit("txtSource", QT_TRANSLATE_NOOP("vexlator", "Path of the source"));
    btnBrowseSelect = Button("btnBrowseSelect", QT_TRANSLATE_NOOP("vexlator", "&Browse…"),
                             QT_TRANSLATE_NOOP("vexlator", "Chooses the file to be converted"));
    btnGeo = Button("btnGeo", QT_TRANSLATE_NOOP("vexlator", "Georefere&nce…"),
                    QT_TRANSLATE_NOOP("vexlator", "Puts the image on the ground"));
    chkAll = Check("chkAll", QT_TRANSLATE_NOOP("vexlator", "&All files of this kind in the folder"),
                   QT_TRANSLATE_NOOP("vexlator", "Each becomes a package in a folder of its own"));
    hint = new QLabel(Texts::tr("Drop files or folders here, or choose with Browse"), lstFiles->viewport());
    hint->setObjectName(QStringLiteral("hint"));
    hint->setAlignment(Qt::AlignCenter);
    hint->setForegroundRole(QPalette::PlaceholderText);
    hint->setAttribute(Qt::WA_TransparentForMouseEvents);
    lstFiles->viewport()->installEventFilter(this);
    lstFiles->setMinimumHeight(fontMetrics().height() * 7);

    auto* group = new QGroupBox;
    auto* grid = new QGridLayout(group);
    grid->addWidget(Label("lblSource", QT_TRANSLATE_NOOP("vexlator", "&Source"), txtSource), 0, 0);
    grid->addWidget(txtSource, 0, 1);
    grid->addWidget(btnBrowseSelect, 0, 2);
    grid->addWidget(chkAll, 1, 1);
    grid->addWidget(btnGeo, 1, 2);
    grid->addWidget(lstFiles, 2, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(2, 1);
    return group;
}

QWidget* SelectionForm::Package() {
    txttarget = Edit("txttarget", QT_TRANSLATE_NOOP("vexlator", "Path of the package"));
    txtStyling = Edit("txtStyling", QT_TRANSLATE_NOOP("vexlator", "Path of the background styling file"));
    btnBrowseSave = Button("btnBrowseSave", QT_TRANSLATE_NOOP("vexlator", "Br&owse…"),
                           QT_TRANSLATE_NOOP("vexlator", "Chooses the package to be written"));
    btnBrowseStyling = Button("btnBrowseStyling", QT_TRANSLATE_NOOP("vexlator", "Bro&wse…"),
                              QT_TRANSLATE_NOOP("vexlator", "Chooses a background styling file"));
    btnStyleSerach = Button("btnStyleSerach", QT_TRANSLATE_NOOP("vexlator", "&Edit…"),
                            QT_TRANSLATE_NOOP("vexlator", "Opens the background styling editor"));
    chkClear =
        Check("chkClear", QT_TRANSLATE_NOOP("vexlator", "&Clear the output folder first"),
              QT_TRANSLATE_NOOP("vexlator", "Deletes packages in the folder and in the folders below it"));
    chkExplode = Check("chkExplode", QT_TRANSLATE_NOOP("vexlator", "E&xplode symbols"),
                       QT_TRANSLATE_NOOP("vexlator", "Symbols become lines and areas"));
    chkInteractive = Check("chkInteractive", QT_TRANSLATE_NOOP("vexlator", "Show helpe&r programs"),
                           QT_TRANSLATE_NOOP("vexlator", "Helper programs show their windows"));
    chkApplyMMCOU =
        Check("chkApplyMMCOU", QT_TRANSLATE_NOOP("vexlator", "Apply change-only &updates"),
              QT_TRANSLATE_NOOP("vexlator", "The source updates the packages of earlier sources"));

    auto* group = new QGroupBox;
    auto* grid = new QGridLayout(group);
    grid->addWidget(Label("lbltarget", QT_TRANSLATE_NOOP("vexlator", "&Package"), txttarget), 0, 0);
    grid->addWidget(txttarget, 0, 1);
    grid->addWidget(btnBrowseSave, 0, 2);
    grid->addWidget(Label("lblStyling", QT_TRANSLATE_NOOP("vexlator", "St&yling"), txtStyling), 1, 0);
    auto* styling = new QHBoxLayout;
    styling->addWidget(txtStyling);
    styling->addWidget(btnStyleSerach);
    grid->addLayout(styling, 1, 1);
    grid->addWidget(btnBrowseStyling, 1, 2);
    auto* choices = new QGridLayout;
    choices->addWidget(chkClear, 0, 0);
    choices->addWidget(chkExplode, 0, 1);
    choices->addWidget(chkInteractive, 1, 0);
    choices->addWidget(chkApplyMMCOU, 1, 1);
    choices->setHorizontalSpacing(3 * fontMetrics().height() / 2);
    choices->setColumnStretch(2, 1);
    grid->addLayout(choices, 2, 1, 1, 2);
    grid->setColumnStretch(1, 1);
    return group;
}

QWidget* SelectionForm::Commands() {
    btnGo = Button("btnGo", QT_TRANSLATE_NOOP("vexlator", "&Go"));
    btnGo->setDefault(true);
    btnCancel = Button("btnCancel", QT_TRANSLATE_NOOP("vexlator", "Cance&l"),
                       QT_TRANSLATE_NOOP("vexlator", "Existing packages stay unchanged"));
    btnAgain = Button("btnAgain", QT_TRANSLATE_NOOP("vexlator", "Run what fa&iled again"));
    btnCommand =
        Button("btnCommand", QT_TRANSLATE_NOOP("vexlator", "Show as co&mmand…"),
               QT_TRANSLATE_NOOP("vexlator", "The command line that does the same without a window"));
    chkKeepOpen = Check("chkKeepOpen", QT_TRANSLATE_NOOP("vexlator", "&Keep open"),
                        QT_TRANSLATE_NOOP("vexlator", "The window stays for the next conversion"));
    auto* line = new QWidget;
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(btnCommand);
    row->addWidget(btnAgain);
    row->addStretch(1);
    row->addWidget(chkKeepOpen);
    row->addSpacing(fontMetrics().height());
    row->addWidget(btnCancel);
    row->addWidget(btnGo);
    return line;
}

void SelectionForm::SetRunning(bool running) {
    sources_->setEnabled(true);
    for (QWidget* control : {static_cast<QWidget*>(txtSource), static_cast<QWidget*>(btnBrowseSelect),
                             static_cast<QWidget*>(chkAll), static_cast<QWidget*>(btnGeo), package_,
                             static_cast<QWidget*>(btnGo), static_cast<QWidget*>(btnAgain)})
        control->setEnabled(!running);
    btnCancel->setEnabled(running);
}

void SelectionForm::FitColumns() {
    QHeaderView* header = lstFiles->header();
    for (int column = 0; column + 1 < header->count(); ++column) {
        lstFiles->resizeColumnToContents(column);
        int widest = fontMetrics().averageCharWidth() * 26;
        header->resizeSection(column, qMin(header->sectionSize(column), widest) + fontMetrics().height() / 2);
    }
}

void SelectionForm::AlignLabels() {
    int widest = 0;
    QList<QLabel*> labels = {sources_->findChild<QLabel*>(QStringLiteral("lblSource"))};
    labels += package_->findChildren<QLabel*>();
    for (QLabel* label : labels) widest = qMax(widest, label->sizeHint().width());
    for (QLabel* label : labels) label->setMinimumWidth(widest);
}

/// The hint fills the list.
bool SelectionForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) hint->resize(lstFiles->viewport()->size());
    return QWidget::eventFilter(watched, event);
}

}  // namespace vexlator::desktop
