// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/selection/SelectionWindow.h"

#include "desktop/application/Application.h"
#include "desktop/application/CommandWindow.h"
#include "desktop/application/ProgressPanel.h"
#include "desktop/application/Texts.h"
#include "desktop/selection/Captions.h"
#include "desktop/selection/FileChoice.h"
#include "desktop/selection/SelectionForm.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "startup/Settings.h"
#include "startup/go/DescribeSource.h"
#include "util/Paths.h"
#include "util/Programs.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QDirIterator>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QStatusBar>
#include <QTreeView>

namespace vexlator::desktop {

namespace {

using startup::ExitStatus;
using RowState = startup::RowResult::State;

bool HasExtension(const QString& path, std::initializer_list<const char*> extensions) {
    return std::any_of(extensions.begin(), extensions.end(), [&](const char* extension) {
        return path.endsWith(QLatin1Char('.') + QLatin1String(extension), Qt::CaseInsensitive);
    });
}

/// A folder stands for what lies in it and below it that Go does something with.
QStringList SourcesIn(const QString& path) {
    if (!QFileInfo(path).isDir()) return {path};
    std::vector<std::string> files;
    for (QDirIterator each(path, QDir::Files, QDirIterator::Subdirectories); each.hasNext();)
        files.push_back(each.next().toStdString());
    QStringList sources;
    for (const std::string& source : startup::GoSourcesAmong(std::move(files))) sources << Text(source);
    sources.sort(Qt::CaseInsensitive);
    return sources;
}

/// What a source field stands for.
std::vector<std::string> SourcesOf(const startup::SelectionSettings& choices) {
    if (auto listed = choices.ListedFiles(); !listed.empty()) return listed;
    if (choices.chkAll || choices.txtSource.find('*') != std::string::npos)
        return startup::FilesOfKind(choices.txtSource);
    if (!platform::FileExists(choices.txtSource)) return {};
    return {choices.txtSource};
}

constexpr int completeShown = 1000;  // ms
constexpr int messagesShown = 5;     // in a box; all are in its details

}  // namespace

SelectionWindow::SelectionWindow(config::Installation& installation, Options options)
    : installation_(installation),
      options_(std::move(options)),
      caption_(Texts::tr("Vexlator") + QLatin1Char(' ') + QCoreApplication::applicationVersion()),
      form_(new SelectionForm(rows_)),
      talk_(BoxesOver([this] { return this; }, [this](const QString& line) { Say(line); })),
      run_(installation, talk_),
      go_(installation, GoListener(),
          {.row = [this](const startup::RowResult& row) { TakeRow(row); },
           .ended = [this](ExitStatus status) { Ended(status); }}) {
    setObjectName(QStringLiteral("frmZSelect"));
    setAcceptDrops(true);
    setCentralWidget(form_);
    MakeMenus();
    statusBar();
    Connect();
    Load();
}

/// Restores the controls, translates captions, lists the files.
void SelectionWindow::Load() {
    startup::SelectionSettings choices = startup::RestoreSelection(run_);
    form_->txtSource->setText(Text(choices.txtSource));
    form_->txttarget->setText(Text(choices.txttarget));
    form_->txtStyling->setText(Text(choices.txtStyling));
    form_->chkClear->setChecked(choices.chkClear);
    form_->chkExplode->setChecked(choices.chkExplode);
    form_->chkApplyMMCOU->setChecked(choices.chkApplyMMCOU);
    form_->chkInteractive->setChecked(choices.chkInteractive);
    form_->chkKeepOpen->setChecked(choices.chkKeepOpen);
    form_->chkAll->setChecked(choices.chkAll);
    TranslateWindow(*this,
                    util::JoinPath(Settings().ConfigFolder, "VxtLanguage_Dev.dll." + util::LocaleCountry()));
    form_->AlignLabels();
    setWindowTitle(caption_);
    FollowSource();
    if (!restoreGeometry(QSettings().value(QStringLiteral("selectionWindow")).toByteArray()))
        resize(fontMetrics().averageCharWidth() * 140, fontMetrics().height() * 40);
    if (options_.runsGo) QTimer::singleShot(0, this, [this] { Go(); });
}

void SelectionWindow::Connect() {
    describing_.setInterval(0);
    connect(&describing_, &QTimer::timeout, this, [this] { DescribeNext(); });
    connect(form_->txtSource, &QLineEdit::editingFinished, this, [this] { FollowSource(); });
    connect(form_->chkAll, &QCheckBox::toggled, this, [this] { ListSources(); });
    connect(form_->chkClear, &QCheckBox::clicked, this, [this] { SaveChoices(); });
    connect(form_->btnBrowseSelect, &QPushButton::clicked, this, [this] { BrowseSource(); });
    connect(form_->btnBrowseSave, &QPushButton::clicked, this, [this] { BrowseTarget(); });
    connect(form_->btnBrowseStyling, &QPushButton::clicked, this, [this] { BrowseStyling(); });
    connect(form_->btnGo, &QPushButton::clicked, this, [this] { Go(); });
    connect(form_->btnAgain, &QPushButton::clicked, this, [this] { Again(); });
    connect(form_->btnCancel, &QPushButton::clicked, this, [this] { go_.Cancel(); });
    connect(form_->btnCommand, &QPushButton::clicked, this, [this] { ShowCommand(); });
    connect(form_->btnGeo, &QPushButton::clicked, this,
            [this] { options_.others.georeference(this, form_->txtSource->text()); });
    connect(form_->btnStyleSerach, &QPushButton::clicked, this,
            [this] { options_.others.styling(this, form_->txtStyling->text()); });
    connect(form_->lstFiles, &QTreeView::doubleClicked, this, [this] { ShowPreview(); });
}

startup::SelectionSettings SelectionWindow::Choices() const {
    startup::SelectionSettings choices;
    choices.txtSource = form_->txtSource->text().toStdString();
    choices.txttarget = form_->txttarget->text().toStdString();
    choices.txtStyling = form_->txtStyling->text().toStdString();
    choices.chkAll = form_->chkAll->isChecked();
    choices.chkClear = form_->chkClear->isChecked();
    choices.chkExplode = form_->chkExplode->isChecked();
    choices.chkApplyMMCOU = form_->chkApplyMMCOU->isChecked();
    choices.chkInteractive = form_->chkInteractive->isChecked();
    choices.chkKeepOpen = form_->chkKeepOpen->isChecked();
    return choices;
}

void SelectionWindow::BrowseSource() {
    QString folder =
        Text(util::FolderOf(form_->txtSource->text().section(QLatin1Char('|'), 0, 0).toStdString()));
    QString chosen = SelectFile(this, folder, false, QString::fromLatin1(sourceFilter));
    if (!chosen.isEmpty()) ChooseSource(chosen);
}

void SelectionWindow::BrowseTarget() {
    QString chosen = SelectFile(this, form_->txttarget->text(), true, QString::fromLatin1(targetFilter));
    if (!chosen.isEmpty()) form_->txttarget->setText(chosen);
}

void SelectionWindow::BrowseStyling() {
    QString chosen = SelectFile(this, form_->txtStyling->text(), false, QString::fromLatin1(stylingFilter));
    if (!chosen.isEmpty()) form_->txtStyling->setText(chosen);
}

void SelectionWindow::ChooseSource(const QString& path) {
    RememberSource(path);
    form_->txtSource->setText(path);
    form_->txttarget->setEnabled(true);
    std::string target = startup::TargetFor(path.toStdString(), form_->txttarget->text().toStdString());
    // The folder and the name are joined by a backslash, whatever the folder is written with.
    form_->txttarget->setText(Text(target.starts_with('/') ? platform::NativePath(target) : target));
    std::string style = util::JoinPath(util::FolderOf(path.toStdString()), "Style.BSF");
    if (platform::FileExists(style)) form_->txtStyling->setText(Text(style));
    if (HasExtension(path, {"pdf"})) form_->chkAll->setChecked(false);
    FollowSource();
}

/// One file is chosen as with Browse; several are a list, which leaves the choice of a folder for packages.
void SelectionWindow::ChooseSources(const QStringList& paths) {
    QStringList sources;
    for (const QString& path : paths) {
        if (HasExtension(path, {"bsf"}))
            form_->txtStyling->setText(path);
        else
            sources += SourcesIn(path);
    }
    if (sources.isEmpty() && HasExtension(paths.value(0), {"bsf"})) return;
    if (sources.isEmpty()) return Say(Texts::tr("Nothing of what was dropped can be converted"));
    form_->chkAll->setChecked(false);
    ChooseSource(sources.front());
    if (sources.size() == 1) return;
    SetSources(sources);
}

/// Several files, of any kinds.
void SelectionWindow::SetSources(const QStringList& paths) {
    form_->txtSource->setText(paths.join(QLatin1Char('|')));
    form_->txtSource->setCursorPosition(0);
    FollowSource();
}

/// What is left is a list, whatever stood for the files before.
void SelectionWindow::RemoveSelected() {
    QItemSelectionModel& selected = *form_->lstFiles->selectionModel();
    if (go_.IsRunning() || !selected.hasSelection()) return;
    QStringList left;
    for (int row = 0; row < rows_.rowCount(); ++row)
        if (!selected.isRowSelected(row)) left << Text(rows_.PathOf(row));
    form_->chkAll->setChecked(false);
    SetSources(left);
}

/// What depends on the kind of the source.
void SelectionWindow::FollowSource() {
    QString source = form_->txtSource->text();
    form_->btnGeo->setVisible(options_.others.georeference && HasExtension(source, {"jpg", "bmp"}));
    form_->chkApplyMMCOU->setVisible(HasExtension(source, {"gml", "gz"}));
    form_->chkAll->setEnabled(!HasExtension(source, {"pdf"}) && !source.contains(QLatin1Char('|')));
    ListSources();
}

void SelectionWindow::ListSources() {
    rows_.SetSources(SourcesOf(Choices()));
    form_->hint->setVisible(rows_.rowCount() == 0);
    describing_.start();
    UpdateButtons();
}

/// One file each time the window has nothing else to do.
void SelectionWindow::DescribeNext() {
    auto path = rows_.NextToDescribe();
    if (path) return rows_.Describe(*path, startup::DescribeSource(run_, *path));
    describing_.stop();
    form_->FitColumns();
}

void SelectionWindow::Go() {
    if (go_.IsRunning()) return;
    FollowSource();
    rows_.ForgetResults();
    said_.clear();
    messages_.clear();
    startup::ReadSettings(installation_);  // the options window may have changed them
    go_.Go(Choices());
    form_->progress->Follow(go_.Talk());
    UpdateButtons();
}

void SelectionWindow::Again() {
    messages_.clear();
    go_.Again();
    form_->progress->Follow(go_.Talk());
    UpdateButtons();
}

void SelectionWindow::TakeRow(const startup::RowResult& row) {
    rows_.SetResult(row);
    form_->hint->setVisible(false);
    form_->progress->SetFiles(rows_.Count(RowState::Done) + rows_.Count(RowState::Failed), rows_.rowCount());
}

/// The messages of a Go are kept for its end: none of its files waits for a person.
Listener SelectionWindow::GoListener() {
    Listener listener = BoxesOver([this] { return this; },
                                  [this](const QString& line) {
                                      said_ << line;
                                      Say(line);
                                  });
    listener.showMessage = [this](const QString& text) {
        said_ << text;
        messages_ << text.simplified();  // a line each, as reasons are
    };
    return listener;
}

QString SelectionWindow::Summary(ExitStatus status) const {
    int failed = rows_.Count(RowState::Failed);
    if (status == ExitStatus::Interrupted) return Texts::tr("Cancelled; existing packages are unchanged");
    if (status == ExitStatus::NothingToDo) return Texts::tr("There is nothing to convert");
    return failed > 0 ? Texts::tr("%n file(s) failed", "", failed) : Texts::tr("Complete");
}

void SelectionWindow::Ended(ExitStatus status) {
    rows_.EndRunning();
    form_->FitColumns();
    UpdateButtons();
    form_->progress->Stop(Summary(status));
    if (closesWhenEnded_) return EndProgram(status);
    bool stays = StaysOpen(status);
    if (!options_.isQuiet) ShowMessages(Summary(status), !stays);
    if (stays) return;
    setWindowTitle(Texts::tr("Complete"));
    QTimer::singleShot(completeShown, this, [this, status] { EndProgram(status); });
}

/// Go ends the program once it has converted something; a GO command that was cancelled ends it too.
bool SelectionWindow::StaysOpen(ExitStatus status) const {
    if (status == ExitStatus::Interrupted) return !options_.runsGo;
    bool hasConverted = rows_.Count(RowState::Done) + rows_.Count(RowState::Failed) > 0;
    return !hasConverted || (form_->chkKeepOpen->isChecked() && !options_.runsGo);
}

/// Failures stand in the list; when the window goes they would be seen nowhere.
void SelectionWindow::ShowMessages(const QString& summary, bool withFailures) {
    QStringList lines;
    for (int row = 0; row < rows_.rowCount(); ++row) {
        const startup::RowResult& result = rows_.ResultOf(row);
        if (result.state != RowState::Failed) continue;
        messages_.removeAll(Text(result.reason).simplified());
        if (withFailures) lines << Text(util::FileNameOf(result.source) + ": " + result.reason);
    }
    lines += messages_;
    if (lines.isEmpty()) return;
    QMessageBox box(QMessageBox::Warning, Texts::tr("Vexlator"), summary, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(lines.mid(0, messagesShown).join(QLatin1Char('\n')));
    if (lines.size() > messagesShown) box.setDetailedText(lines.join(QLatin1Char('\n')));
    box.exec();
}

void SelectionWindow::SaveChoices() {
    try {
        startup::SaveSelection(run_, Choices());
    } catch (const std::exception& error) {
        talk_.ShowMessage(error.what());
    }
}

void SelectionWindow::EndProgram(ExitStatus status) {
    status_ = status;
    closesWhenEnded_ = true;
    close();
}

void SelectionWindow::closeEvent(QCloseEvent* event) {
    if (go_.IsRunning()) {
        event->ignore();
        if (closesWhenEnded_ || !AsksToCancel(this)) return;
        if (!go_.IsRunning()) return event->accept();  // it has ended while the question stood there
        closesWhenEnded_ = true;
        go_.Cancel();
        return;
    }
    event->accept();
    QSettings().setValue(QStringLiteral("selectionWindow"), saveGeometry());
    if (auto closed = std::exchange(options_.closed, {})) closed(status_);
}

void SelectionWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls() && !go_.IsRunning()) event->acceptProposedAction();
}

void SelectionWindow::dropEvent(QDropEvent* event) {
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile()) paths << url.toLocalFile();
    event->acceptProposedAction();
    ChooseSources(paths);
}

void SelectionWindow::UpdateButtons() {
    bool running = go_.IsRunning();
    form_->SetRunning(running);
    form_->btnAgain->setVisible(!running && rows_.Count(RowState::Failed) > 0);
    form_->btnStyleSerach->setVisible(static_cast<bool>(options_.others.styling));
    form_->progress->setVisible(running || rows_.Count(RowState::NotYet) < rows_.rowCount());
    if (running) return;
    QString source = form_->txtSource->text();
    form_->chkAll->setEnabled(!HasExtension(source, {"pdf"}) && !source.contains(QLatin1Char('|')));
}

void SelectionWindow::Say(const QString& line) {
    statusBar()->showMessage(line);
}

}  // namespace vexlator::desktop
