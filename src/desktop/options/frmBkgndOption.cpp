// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/options/frmBkgndOption.h"

#include "coords/TransformationSetting.h"
#include "desktop/application/Texts.h"
#include "desktop/options/SettingsPage.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "startup/CoordinateLibrary.h"
#include "util/Files.h"

#include <QCheckBox>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QTreeWidget>
#include <QUrl>

namespace vexlator::desktop {

namespace {

enum FindingRole { SectionRole = Qt::UserRole, KeyRole };

}  // namespace

frmBkgndOption::frmBkgndOption(config::Installation& installation, QWidget* parent)
    : QDialog(parent),
      model_(installation),
      iniPath_(platform::NativePath(installation.IniFile(""))),
      tabs_(new QTabWidget),
      settings_(new SettingsPage(model_)) {
    setObjectName(QStringLiteral("frmBkgndOption"));
    setWindowTitle(tr("Background Options"));
    tabs_->addTab(MakeBackgroundPage(), tr("&Backgrounds"));
    tabs_->addTab(settings_, tr("All &settings"));
    tabs_->addTab(MakeCheckPage(), tr("C&heck"));
    settings_->changed = [this] { Changed(); };
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    layout->addWidget(MakeButtons());
    Fill();
    ShowFindings();
    resize(860, 580);
}

// --- Pages

QLineEdit* frmBkgndOption::AddText(QFormLayout& form, const char* name, const QString& label,
                                   const QString& meaning) {
    auto* field = new QLineEdit;
    field->setObjectName(QLatin1String(name));
    field->setAccessibleName(QString(label).remove('&').remove(':'));
    field->setToolTip(meaning);
    form.addRow(label, field);
    connect(field, &QLineEdit::textEdited, this, [this, name](const QString& text) {
        model_.SetText(name, text.toStdString());
        Changed();
    });
    return field;
}

QCheckBox* frmBkgndOption::AddBox(const char* name, const QString& text, const QString& meaning) {
    auto* box = new QCheckBox(text);
    box->setObjectName(QLatin1String(name));
    box->setAccessibleName(QString(text).remove('&'));
    box->setToolTip(meaning);
    connect(box, &QCheckBox::clicked, this, [this, name](bool isOn) {
        model_.SetOn(name, isOn);
        Changed();
    });
    return box;
}

QWidget* frmBkgndOption::MakeTilesGroup() {
    auto* group = new QGroupBox(tr("Packages"));
    auto* form = new QFormLayout(group);
    AddText(*form, "txtGridInterval", tr("&Grid interval:"), tr("Grid interval of background tiling"));
    AddText(*form, "txtEntityMax", tr("&Most entities:"),
            tr("Largest number of entities per background drawing"));
    form->addRow(AddBox("chkGenerateFullPolys", tr("Closed &polylines become areas too"),
                        tr("Every closed polyline also becomes an area")));
    form->addRow(AddBox("chkCreateLocalDXF", tr("Write a D&XF with a package"),
                        tr("Also write a DXF when building a package")));
    return group;
}

QWidget* frmBkgndOption::MakeCoordinatesGroup() {
    auto* group = new QGroupBox(tr("Coordinates"));
    auto* form = new QFormLayout(group);
    QLineEdit* system = AddText(*form, "txtCoordSystem", tr("Coordinate s&ystem:"),
                                tr("Coordinate system (transformation) file; empty: British National Grid"));
    auto button = [&](const char* name, const QString& text, void (frmBkgndOption::*act)()) {
        auto* made = new QPushButton(text);
        made->setObjectName(QLatin1String(name));
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, act);
        return made;
    };
    QPushButton* search = button("btnSearch", tr("&Browse…"), &frmBkgndOption::ChooseCoordSystem);
    QPushButton* save = button("btnCoordManager", tr("Save &as…"), &frmBkgndOption::btnCoordManager_Click);
    search->setAccessibleName(tr("Choose a coordinate system file"));
    save->setAccessibleName(tr("Save the coordinate system under a new name"));
    system->setMinimumWidth(200);
    system->setPlaceholderText(tr("British National Grid"));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(search);
    buttons->addWidget(save);
    buttons->addStretch();
    form->addRow(QString(), buttons);
    form->addRow(AddBox("chkCopyCoordSys", tr("&Copy it with outputs"),
                        tr("Copy the coordinate system with outputs")));
    form->addRow(AddBox("chkLLin", tr("Shapefiles are in &latitude/longitude"),
                        tr("Shapefiles to import are in latitude/longitude")));
    form->addRow(AddBox("chkFt", tr("GIS data is in &feet"), tr("GIS data for backgrounds is in feet")));
    return group;
}

QWidget* frmBkgndOption::MakePdfGroup() {
    auto* group = new QGroupBox(tr("PDF maps"));
    auto* layout = new QVBoxLayout(group);
    pdfLayers_ = new QPlainTextEdit;
    pdfLayers_->setObjectName(QStringLiteral("txtPDFlayers"));
    pdfLayers_->setAccessibleName(tr("Layers of each page"));
    pdfLayers_->setTabChangesFocus(true);
    auto* label = new QLabel(tr("Layers of each page, a l&ine each:"));
    label->setBuddy(pdfLayers_);
    auto* example = new QLabel(QStringLiteral("Page1=LG_datatransport,GB\nPage2=MV_datatransport,GB"));
    example->setObjectName(QStringLiteral("lbleg"));
    example->setForegroundRole(QPalette::PlaceholderText);
    layout->addWidget(label);
    layout->addWidget(pdfLayers_);
    layout->addWidget(example);
    connect(pdfLayers_, &QPlainTextEdit::textChanged, this, [this] {
        if (isFilling_) return;
        model_.SetPdfLayerLines(pdfLayers_->toPlainText().toStdString());
        Changed();
    });
    return group;
}

QWidget* frmBkgndOption::MakeMasterMapGroup() {
    auto* group = new QGroupBox(tr("MasterMap"));
    auto* form = new QFormLayout(group);
    AddText(*form, "txtMMBackup", tr("Bac&kup folder:"), tr("MasterMap backup folder"));
    form->addRow(AddBox("chkMMcou", tr("Maintain a database with change-only &updates"),
                        tr("Maintain a MasterMap database with change-only updates")));
    return group;
}

QWidget* frmBkgndOption::MakeEsriGroup() {
    auto* group = new QGroupBox(tr("ESRI version for backdrops"));
    auto* layout = new QHBoxLayout(group);
    const std::tuple<const char*, QString, std::string> versions[] = {
        {"chkESRI10", tr("&10"), "1"}, {"chkESRI102", tr("10.&2"), "2"}, {"chkESRI105", tr("10.&5"), "5"}};
    for (const auto& version : versions) {
        auto* box = new QCheckBox(std::get<1>(version));
        box->setObjectName(QLatin1String(std::get<0>(version)));
        box->setAccessibleName(tr("ESRI version %1").arg(QString(std::get<1>(version)).remove('&')));
        layout->addWidget(box);
        esri_.emplace_back(box, std::get<2>(version));
        connect(box, &QCheckBox::clicked, this, [this, number = std::get<2>(version)](bool isOn) {
            model_.SetEsriVersion(isOn ? number : "0");
            Changed();
        });
    }
    layout->addStretch();
    return group;
}

QWidget* frmBkgndOption::MakeBackgroundPage() {
    auto* page = new QWidget;
    auto* left = new QVBoxLayout;
    left->addWidget(MakeTilesGroup());
    left->addWidget(MakeCoordinatesGroup());
    left->addStretch();
    auto* right = new QVBoxLayout;
    right->addWidget(MakePdfGroup(), 1);
    right->addWidget(MakeMasterMapGroup());
    right->addWidget(MakeEsriGroup());
    auto* layout = new QHBoxLayout(page);
    layout->addLayout(left, 1);
    layout->addLayout(right, 1);
    return page;
}

QWidget* frmBkgndOption::MakeCheckPage() {
    auto* page = new QWidget;
    findings_ = new QTreeWidget;
    findings_->setObjectName(QStringLiteral("lstFindings"));
    findings_->setAccessibleName(tr("Findings in gv.ini"));
    findings_->setHeaderLabels({tr("Findings in gv.ini"), tr("Remedy")});
    findings_->setRootIsDecorated(false);
    findings_->setTextElideMode(Qt::ElideMiddle);
    findings_->setStyleSheet(QStringLiteral("QTreeView::item { padding: 3px 2px; }"));
    findings_->setAlternatingRowColors(true);
    findings_->header()->setStretchLastSection(false);
    findings_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    findings_->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    auto* help = new QLabel(tr("A double click selects the setting."));
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(findings_);
    layout->addWidget(help);
    connect(findings_, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* row) {
        tabs_->setCurrentWidget(settings_);
        settings_->GoTo(row->data(0, SectionRole).toString().toStdString(),
                        row->data(0, KeyRole).toString().toStdString());
    });
    return page;
}

QWidget* frmBkgndOption::MakeButtons() {
    auto* buttons = new QDialogButtonBox;
    done_ = buttons->addButton(tr("&Done"), QDialogButtonBox::AcceptRole);
    done_->setObjectName(QStringLiteral("btnDone"));
    done_->setAccessibleName(tr("Write the changes and close"));
    done_->setToolTip(tr("Writes the changes and closes. A right click opens gv.ini."));
    done_->installEventFilter(this);
    buttons->addButton(QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &frmBkgndOption::btnDone_Click);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

// --- Display

void frmBkgndOption::Fill() {
    isFilling_ = true;
    QWidget* page = tabs_->widget(0);
    for (auto* field : page->findChildren<QLineEdit*>())
        if (QString text = Text(model_.TextOf(field->objectName().toStdString())); text != field->text())
            field->setText(text);
    for (auto* box : page->findChildren<QCheckBox*>())
        if (!box->objectName().startsWith(QLatin1String("chkESRI")))
            box->setChecked(model_.IsOn(box->objectName().toStdString()));
    for (auto& [box, version] : esri_) box->setChecked(model_.EsriVersion() == version);
    // A line end that was just typed is not a change yet, and stays.
    QString lines = Text(model_.PdfLayerLines());
    if (!pdfLayers_->hasFocus() && lines != pdfLayers_->toPlainText()) pdfLayers_->setPlainText(lines);
    isFilling_ = false;
}

void frmBkgndOption::Changed() {
    Fill();
    settings_->Fill();
    ShowFindings();
    setWindowModified(model_.IsChanged());
}

void frmBkgndOption::ShowFindings() {
    findings_->clear();
    for (const startup::Finding& finding : model_.Findings()) {
        auto* row = new QTreeWidgetItem(findings_, {Text(finding.text), Text(finding.mend)});
        row->setData(0, SectionRole, Text(finding.section));
        row->setData(0, KeyRole, Text(finding.key));
        row->setToolTip(0, Text(finding.text));
    }
    int count = findings_->topLevelItemCount();
    if (count == 0) new QTreeWidgetItem(findings_, {tr("gv.ini has no faults.")});
    tabs_->setTabText(2, count == 0 ? tr("C&heck") : tr("C&heck (%1)").arg(count));
}

bool frmBkgndOption::Ask(const QString& text) {
    return QMessageBox::question(this, windowTitle(), text) == QMessageBox::Yes;
}

void frmBkgndOption::Tell(const QString& text) {
    QMessageBox::information(this, windowTitle(), text);
}

// --- Actions

void frmBkgndOption::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // Once the window is seen, so that what it asks is understood.
    if (!std::exchange(isChecked_, true)) QTimer::singleShot(0, this, [this] { CheckLibrary(this); });
}

bool CheckLibrary(QWidget* parent) {
    startup::CoordinateLibrary library = startup::CheckCoordinateLibrary();
    using State = startup::CoordinateLibrary::State;
    if (library.state == State::Fine) return true;
    QString title = parent->windowTitle(), message = Text(library.Message());
    auto tell = [&](const QString& text) { QMessageBox::information(parent, title, text); };
    if (library.state == State::Missing)
        tell(message);
    else if (QMessageBox::question(parent, title, message) == QMessageBox::Yes)
        tell(library.Copy() ? QStringLiteral("Sucessfully updated")
                            : QStringLiteral("Update failed please check folder permissions"));
    return false;
}

void frmBkgndOption::ChooseCoordSystem() {
    QString path = QFileDialog::getOpenFileName(this, tr("Coordinate system"),
                                                Text(platform::NativePath(model_.TextOf("txtCoordSystem"))),
                                                tr("Coordinate System DAT") + " (*.DAT *.dat)");
    if (path.isEmpty()) return;
    model_.SetText("txtCoordSystem", path.toStdString());
    Changed();
}

void frmBkgndOption::btnCoordManager_Click() {
    std::string source = model_.TextOf("txtCoordSystem");
    if (!coords::HoldsDefinition(source))
        return Tell(QStringLiteral("Warning! Should be Be a Coordinate Format"));
    QString target = QFileDialog::getSaveFileName(this, QStringLiteral("Saveas Projection File"), QString(),
                                                  tr("Coordinate System") + "(*.dat)");
    if (target.isEmpty()) return;
    if (!target.endsWith(QLatin1String(".dat"), Qt::CaseInsensitive)) target += QLatin1String(".dat");
    try {
        platform::OutputFile file(target.toStdString());
        file.Write(platform::ReadWholeFile(source));
        file.Commit();
    } catch (const std::exception& error) {
        Tell(Text(error.what()));
    }
}

void frmBkgndOption::btnDone_Click() {
    try {
        model_.Save();
        accept();
    } catch (const std::exception& error) {
        Tell(Text(error.what()));
    }
}

bool frmBkgndOption::eventFilter(QObject* watched, QEvent* event) {
    if (watched != done_ || event->type() != QEvent::MouseButtonRelease ||
        static_cast<QMouseEvent*>(event)->button() != Qt::RightButton)
        return QDialog::eventFilter(watched, event);
    OfferIni();
    return true;
}

void frmBkgndOption::OfferIni() {
    if (Ask("Load " + Text(iniPath_))) QDesktopServices::openUrl(QUrl::fromLocalFile(Text(iniPath_)));
}

}  // namespace vexlator::desktop
