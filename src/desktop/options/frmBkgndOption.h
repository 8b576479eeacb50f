// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/OptionsModel.h"

#include <QCoreApplication>
#include <QDialog>
#include <functional>
#include <string>

class QCheckBox;
class QFormLayout;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;
class QTreeWidget;

namespace vexlator::desktop {

class SettingsPage;

/// The options window: the options of backgrounds, every setting of gv.ini, and its findings.
class frmBkgndOption : public QDialog {
    Q_DECLARE_TR_FUNCTIONS(frmBkgndOption)
public:
    /// The installation must outlive the window.
    explicit frmBkgndOption(config::Installation& installation, QWidget* parent = nullptr);

    startup::OptionsModel& Model() { return model_; }

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* MakeBackgroundPage();
    QWidget* MakeTilesGroup();
    QWidget* MakeCoordinatesGroup();
    QWidget* MakePdfGroup();
    QWidget* MakeMasterMapGroup();
    QWidget* MakeEsriGroup();
    QWidget* MakeCheckPage();
    QWidget* MakeButtons();

    QLineEdit* AddText(QFormLayout& form, const char* name, const QString& label, const QString& meaning);
    QCheckBox* AddBox(const char* name, const QString& text, const QString& meaning);
    /// Shows the model's values in all controls.
    void Fill();
    /// After a change of the model.
    void Changed();
    void ShowFindings();

    void ChooseCoordSystem();
    void btnCoordManager_Click();
    void btnDone_Click();
    void OfferIni();
    bool Ask(const QString& text);
    void Tell(const QString& text);

    startup::OptionsModel model_;
    std::string iniPath_;
    QTabWidget* tabs_;
    SettingsPage* settings_;
    QPlainTextEdit* pdfLayers_ = nullptr;
    QTreeWidget* findings_ = nullptr;
    QPushButton* done_ = nullptr;
    std::vector<std::pair<QCheckBox*, std::string>> esri_;  ///< with the version of each
    bool isFilling_ = false, isChecked_ = false;
};

/// Looks whether the coordinate library is where it is expected; offers to copy it there, or tells that it is
/// missing. True when it is in its place, or none is expected.
bool CheckLibrary(QWidget* parent);

}  // namespace vexlator::desktop
