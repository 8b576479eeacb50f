// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/styling/MobileStyleFile.h"
#include "desktop/mobilestyles/MobileStyleTable.h"

#include <QMainWindow>
#include <QUndoStack>
#include <string>

class QTableView;
class QLabel;
class QLayout;
class QToolBar;

namespace vexlator::desktop {

/// Edits a mobile style file: what it does not know of the file stays as it is.
class StyleEditorWindow : public QMainWindow {
public:
    StyleEditorWindow();

    /// Path text; a file that is not there becomes a new one when it is saved. False, and told, when it
    /// cannot be read.
    bool Open(const std::string& path);
    const background::MobileStyleFile& File() const { return file_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeTable();
    QLayout* MakeSamples();
    void MakeActions();
    void ChooseFile();
    bool Save();
    bool SaveAs();
    /// Saves first, where the person wants that. False when the file is to stay open.
    bool MayClose();

    void Edit(std::size_t line, background::MobileField field, const QString& value);
    void AddStyle(const char* type);
    void RemoveStyle();
    void Change(const QString& what, background::MobileStyleFile after);
    void Show(background::MobileStyleFile file);
    void Told();
    void ShowTitle();

    background::MobileStyleFile file_;
    MobileStyleTable rows_;
    std::string path_;
    QUndoStack undo_;
    QTableView* table_;
    QToolBar* bar_ = nullptr;
    QWidget* samples_[2] = {};
    QLabel* told_;
};

}  // namespace vexlator::desktop
