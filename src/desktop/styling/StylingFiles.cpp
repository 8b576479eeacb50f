// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/OutsideProgram.h"
#include "desktop/application/Texts.h"
#include "desktop/selection/FileChoice.h"
#include "desktop/styling/StylingForm.h"
#include "desktop/styling/frmBkgndStyle.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Paths.h"

#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QStatusBar>

/// The files of the styling window: styles, mobile styles, drawings.
namespace vexlator::desktop {

namespace {

constexpr const char* styleFilter = "Background Styling Files(*.BSF)|*.BSF";
constexpr const char* mobileFilter = "Mobile Style File (*.txt)|*.txt";
constexpr const char* previewFilter = "GIS File(*.*)|*.*";
constexpr const char* drawingFilter = "VDF|*.vdf";

/// What their dialogs show, for scripts/translate.
[[maybe_unused]] constexpr const char* filterWords[] = {
    QT_TRANSLATE_NOOP("vexlator", "Background Styling Files"), QT_TRANSLATE_NOOP("vexlator", "GIS File"),
    QT_TRANSLATE_NOOP("vexlator", "Mobile Style File")};

/// Dialogs add the patterns themselves.
QString FilterOf(const char* filter) {
    static const QRegularExpression patterns(QStringLiteral(" ?\\([^|]*(?=\\|)"));
    return QString::fromLatin1(filter).remove(patterns);
}

}  // namespace

// --- Styles

void frmBkgndStyle::LoadStyleFile(const std::string& path) {
    try {
        if (!platform::FileExists(path))
            throw std::runtime_error(platform::NativePath(path) + " is not there");
        state_.style = background::LoadBackgroundStyle(path, true);
    } catch (const std::exception& error) {
        return Tell(Text(error.what()));
    }
    styleFile_ = path;
    savedStyle_ = state_.style;
    undo_.clear();
    Show(state_);
}

void frmBkgndStyle::ChooseStyle() {
    TakeHeight();
    if (!MayLeaveStyle()) return;
    QString path = SelectFile(this, Text(platform::NativePath(styleFile_)), false, FilterOf(styleFilter));
    if (!path.isEmpty()) LoadStyleFile(path.toStdString());
}

/// With the extension that the path lacks. "" when the person gives up.
QString frmBkgndStyle::ChooseTarget(const QString& start, const char* filter, const QString& extension) {
    QString path = SelectFile(this, start, true, FilterOf(filter));
    if (path.isEmpty() || !QFileInfo(path).suffix().isEmpty()) return path;
    path += extension;  // the dialog has not asked about a file of this name
    return !QFileInfo::exists(path) || MayReplace(path) ? path : QString();
}

bool frmBkgndStyle::MayReplace(const QString& path) {
    return Asks(Texts::tr("%1 is there already. Replace it?").arg(QDir::toNativeSeparators(path)));
}

bool frmBkgndStyle::SaveStyle() {
    TakeHeight();
    QString path = ChooseTarget(Text(platform::NativePath(styleFile_)), styleFilter, QStringLiteral(".BSF"));
    if (path.isEmpty()) return false;
    bool isSimple = form_->chkSimple->isChecked();
    try {
        SaveBackgroundStyle(path.toStdString(), ListedStyle(state_.style), isSimple);
    } catch (const std::exception& error) {
        Tell(Text(error.what()));
        return false;
    }
    styleFile_ = path.toStdString();
    if (isSimple) ChangeStyle(Texts::tr("one colour for all"), [](auto& style) { UseOneColour(style.rows); });
    savedStyle_ = state_.style;
    ShowTitle();
    statusBar()->showMessage(Texts::tr("Saved %1").arg(path), 5000);
    return true;
}

bool frmBkgndStyle::MayLeaveStyle() {
    if (StyleIsSaved()) return true;
    auto answer = QMessageBox::question(this, Texts::tr("Background styling"),
                                        Texts::tr("The style has changes that are not saved. Save it?"),
                                        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel,
                                        QMessageBox::Save);
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && SaveStyle());
}

// --- Mobile styles

/// The file, or the folder that a missing one may appear in.
void frmBkgndStyle::WatchMobileStyles() {
    QStringList watched = mobileWatch_.files() + mobileWatch_.directories();
    if (!watched.isEmpty()) mobileWatch_.removePaths(watched);
    if (mobileFile_.empty()) return;
    QString file = Text(platform::NativePath(mobileFile_)), folder = QFileInfo(file).absolutePath();
    for (const QString& path : {file, folder})
        if (QFileInfo::exists(path)) {
            mobileWatch_.addPath(path);
            return;
        }
}

void frmBkgndStyle::ReadMobileStyles() {
    mobileFile_ = installation_.ReadIni("MOBILESTYLING", "FILE");
    std::string text;
    try {
        text = background::ReadStyleText(mobileFile_);
    } catch (const std::exception& error) {
        statusBar()->showMessage(Text(error.what()));
    }
    table_.UseMobileStyles(std::make_shared<background::MobileStyles>(text));
    WatchMobileStyles();
    onDevice_.reset();
    Restyle();
    CatchUp();
}

void frmBkgndStyle::SelectMobileStyles() {
    QString path = SelectFile(this, Text(platform::NativePath(mobileFile_)), false, FilterOf(mobileFilter));
    if (path.isEmpty()) return;
    try {
        installation_.WriteIni("MOBILESTYLING", "FILE", path.toStdString());
    } catch (const std::exception& error) {
        return Tell(Text(error.what()));
    }
    ReadMobileStyles();
}

void frmBkgndStyle::EditMobileStyles() {
    constexpr std::string_view name = "StyleEditor.exe";
    std::string program = config::FindSuiteProgram(config::Run(installation_, run_.Talk()), name);
    if (program.empty()) {
        std::string missing = util::JoinPath(installation_.Settings().ProgramFolder, name);
        return Tell(Texts::tr("Style Editor not installed:") + QLatin1Char('\n') +
                    Text(platform::NativePath(missing)));
    }
    QStringList arguments;
    if (!mobileFile_.empty()) arguments << Text(platform::NativePath(mobileFile_));
    if (!QProcess::startDetached(Text(platform::NativePath(program)), arguments))
        Tell(Texts::tr("%1 does not start").arg(Text(platform::NativePath(program))));
}

// --- Drawings

void frmBkgndStyle::ChoosePreview() {
    if (run_.IsRunning() || !MayLeaveDrawing()) return;
    QString path = SelectFile(this, QString(), false, FilterOf(previewFilter));
    if (!path.isEmpty()) OpenDrawing(path.toStdString());
}

void frmBkgndStyle::OpenDrawing(const std::string& source) {
    if (run_.IsRunning()) return;
    auto shown = std::make_shared<std::shared_ptr<const StyledDrawing>>();
    std::string folder = folder_.path().toStdString();
    Work(
        Texts::tr("Reading %1…").arg(Text(util::FileNameOf(source))),
        [=](config::Run& run) {
            *shown = ReadStyledDrawing(run, {DrawingOfSource(run, source, folder), {}, std::nullopt});
        },
        [this, shown, source] {
            source_ = source;
            state_.changes.clear();
            savedChanges_.clear();
            undo_.clear();
            form_->btnDevice->setChecked(false);
            TakeDrawing(*shown);
            Show(state_);
        });
}

bool frmBkgndStyle::MayLeaveDrawing() {
    return state_.changes == savedChanges_ ||
           Asks(Texts::tr("The drawing has changes that are not saved. Give them up?"));
}

void frmBkgndStyle::SaveDrawing() {
    if (!shown_ || run_.IsRunning()) return;
    QString path = ChooseTarget({}, drawingFilter, QStringLiteral(".vdf"));
    if (path.isEmpty()) return;
    if (QFileInfo(path) == QFileInfo(Text(platform::NativePath(shown_->order.path))))
        return Tell(Texts::tr("Choose another file: this one is needed to undo changes."));
    Work(
        Texts::tr("Saving %1…").arg(path),
        [order = shown_->order, file = path.toStdString()](config::Run&) { SaveStyledDrawing(order, file); },
        [this] {
            savedChanges_ = shown_->order.changes;
            ShowTitle();
        });
}

void frmBkgndStyle::QuickConvert() {
    TakeHeight();
    if ((styleFile_.empty() || !StyleIsSaved()) && !SaveStyle()) return;
    // The window may be gone before the package is built.
    QDir folder(Text(platform::NativePath(installation_.Settings().TempDirectory)));
    folder.mkpath(QStringLiteral("styled"));
    QString drawing =
        folder.filePath(QStringLiteral("styled/%1.vdf").arg(QFileInfo(Text(source_)).completeBaseName()));
    Work(
        Texts::tr("Saving %1…").arg(drawing),
        [order = shown_->order, file = drawing.toStdString()](config::Run&) {
            SaveStyledDrawing(order, file);
        },
        [this, drawing] {
            savedChanges_ = shown_->order.changes;
            ShowTitle();
            convert_(drawing, Text(styleFile_), Text(source_));
        });
}

}  // namespace vexlator::desktop
