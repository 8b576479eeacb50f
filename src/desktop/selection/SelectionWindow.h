// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Installation.h"
#include "config/Run.h"
#include "desktop/selection/GoRun.h"
#include "desktop/selection/SourceRows.h"
#include "startup/ExitStatus.h"
#include "startup/go/SelectionSettings.h"

#include <QMainWindow>
#include <QTimer>
#include <functional>

namespace vexlator::desktop {

class SelectionForm;

/// Windows that the selection window opens. One that is missing has its control off.
struct OtherWindows {
    std::function<void(QWidget* parent)> options = {};
    /// Checks the coordinate library; true when nothing had to be said.
    std::function<bool(QWidget* parent)> library = {};
    std::function<void(QWidget* parent, const QString& path)> preview = {};  ///< a drawing or a package
    std::function<void(QWidget* parent, const QString& image)> georeference = {};
    std::function<void(QWidget* parent, const QString& styleFile)> styling = {};
};

/// frmZSelect: what to convert, where to, and Go. It shows and asks; what Go does is startup::GoFlow.
class SelectionWindow : public QMainWindow {
public:
    struct Options {
        bool runsGo = false;   ///< a GO command: Go is pressed once the window is shown, and always ends it
        bool isQuiet = false;  ///< no message holds up the end of Go
        OtherWindows others = {};
        std::function<void(startup::ExitStatus)> closed = {};  ///< called once
    };

    /// The installation outlives it.
    SelectionWindow(config::Installation& installation, Options options);

    /// Files, and folders of files, become the sources.
    void ChooseSources(const QStringList& paths);
    /// A JPG and all others beside it.
    void ResetToJPGlist(const QString& imagePath);

    bool IsRunning() const { return go_.IsRunning(); }

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void MakeMenus();
    void FillRecent(QMenu& menu);
    void Connect();
    void Load();
    startup::SelectionSettings Choices() const;
    const config::SharedSettings& Settings() const { return installation_.Settings(); }

    void ChooseSource(const QString& path);
    void SetSources(const QStringList& paths);
    void RemoveSelected();
    void BrowseSource();
    void BrowseTarget();
    void BrowseStyling();
    void FollowSource();
    void ListSources();
    void DescribeNext();

    void Go();
    void Again();
    void TakeRow(const startup::RowResult& row);
    void Ended(startup::ExitStatus status);
    bool StaysOpen(startup::ExitStatus status) const;
    Listener GoListener();
    QString Summary(startup::ExitStatus status) const;
    void ShowMessages(const QString& summary, bool withFailures);
    void ShowSaid();
    void SaveChoices();
    void EndProgram(startup::ExitStatus status);
    void ShowCommand();
    void ShowPreview();
    void UpdateButtons();
    void Say(const QString& line);

    config::Installation& installation_;
    Options options_;
    QString caption_;
    SourceRows rows_;
    QStringList said_, messages_;  ///< by the last Go: all lines; those that are messages
    SelectionForm* form_;
    QTimer describing_;
    bool closesWhenEnded_ = false;
    startup::ExitStatus status_ = startup::ExitStatus::Done;
    Conversation talk_;
    config::Run run_;  ///< of the window itself: reads and saves the controls
    GoRun go_;
};

}  // namespace vexlator::desktop
