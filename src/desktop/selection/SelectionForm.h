// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QAbstractItemModel;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeView;

namespace vexlator::desktop {

class ProgressPanel;

/// The controls of the selection window and where they stand. Object names are those under which the
/// controls are kept in gv.ini.
class SelectionForm : public QWidget {
public:
    explicit SelectionForm(QAbstractItemModel& rows);

    QLineEdit *txtSource, *txttarget, *txtStyling;
    QCheckBox *chkAll, *chkClear, *chkExplode, *chkApplyMMCOU, *chkInteractive, *chkKeepOpen;
    QPushButton *btnBrowseSelect, *btnBrowseSave, *btnGeo, *btnStyleSerach, *btnGo;
    QPushButton *btnBrowseStyling, *btnCancel, *btnAgain, *btnCommand;
    QTreeView* lstFiles;
    QLabel* hint;  ///< over the list while it is empty
    ProgressPanel* progress;

    /// What cannot be changed during a run is off.
    void SetRunning(bool running);
    /// Columns as wide as what they hold; the state has what is left.
    void FitColumns();
    /// Once the captions stand.
    void AlignLabels();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLineEdit* Edit(const char* name, const char* purpose);
    QCheckBox* Check(const char* name, const char* caption, const char* help);
    QPushButton* Button(const char* name, const char* caption, const char* help = "");
    QLabel* Label(const char* name, const char* caption, QWidget* buddy);
    QWidget* Sources();
    QWidget* Package();
    QWidget* Commands();

    QWidget *sources_, *package_;
};

}  // namespace vexlator::desktop
