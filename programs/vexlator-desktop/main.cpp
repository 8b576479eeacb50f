// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Main.h"

#include "desktop/application/Application.h"
#include "desktop/application/CommandWindow.h"
#include "desktop/application/Texts.h"
#include "desktop/application/Worker.h"
#include "desktop/georef/frmGeoRef.h"
#include "desktop/map/MapWindow.h"
#include "desktop/options/frmBkgndOption.h"
#include "desktop/selection/SelectionWindow.h"
#include "desktop/styling/frmBkgndStyle.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Signals.h"
#include "startup/CommandLine.h"
#include "startup/ConversionRun.h"
#include "startup/Settings.h"
#include "startup/go/GoFlow.h"
#include "startup/go/SelectionSettings.h"
#include "ui/terminal/TerminalInterface.h"
#include "util/Paths.h"

#include <QApplication>
#include <QFontMetrics>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <cstdio>
#include <future>
#include <memory>
#include <string>
#include <vector>

/// The program with windows: the selection window, or the progress of the conversion that a command asks for.
namespace vexlator {
namespace {

using desktop::Texts;
using startup::ExitStatus;

constexpr std::string_view help =
    R"(vexlator-desktop: the windows of Vexlator

  vexlator-desktop                  chooses sources and makes background packages
  vexlator-desktop "GO OPTIONS"     the same, and begins at once
  vexlator-desktop FILE.VDF|FILE.GRP    shows a drawing or a package on a map
  vexlator-desktop --open FILE...   shows drawings and packages on maps, takes other files
                                    and folders as sources
  vexlator-desktop COMMAND          performs a command of vexlator, in a window

  --dark       dark colours
  --help, --version

The exit status is that of vexlator.
)";

struct Arguments {
    bool dark = false, wantsHelp = false, wantsVersion = false;
    std::string command = {};
    QStringList pictures = {};  ///< drawings and packages to be looked at
    QStringList sources = {};
};

bool IsPicture(const std::string& path) {
    QString extension = desktop::Text(util::ExtensionOf(path)).toUpper();
    bool canBe = extension == QLatin1String("VDF") || extension == QLatin1String("GRP");
    return canBe && platform::FileExists(platform::AbsolutePath(path));
}

void TakeFile(Arguments& arguments, const std::string& path) {
    QStringList& files = IsPicture(path) ? arguments.pictures : arguments.sources;
    files << desktop::Text(platform::AbsolutePath(path));
}

Arguments ParseArguments(int argc, char** argv) {
    Arguments arguments;
    bool areFiles = false;
    for (int i = 1; i < argc; ++i) {
        std::string argument = argv[i];
        if (areFiles)
            TakeFile(arguments, argument);
        else if (argument == "--open")
            areFiles = true;
        else if (argument == "--dark")
            arguments.dark = true;
        else if (argument == "--help")
            arguments.wantsHelp = true;
        else if (argument == "--version")
            arguments.wantsVersion = true;
        else
            arguments.command += (arguments.command.empty() ? "" : " ") + argument;
    }
    if (IsPicture(arguments.command)) TakeFile(arguments, std::exchange(arguments.command, {}));
    return arguments;
}

/// Go needs no window: without a display it goes on in the terminal.
ExitStatus PerformInTerminal(const std::string& command) {
    platform::StopOnSignals();
    ui::TerminalInterface terminal(stdin, stderr, {});
    return startup::Main(
        command, terminal, {.showSelection = [](config::Run& run, std::string_view received) {
            if (startup::IsGo(received)) return startup::PerformGo(run, received);
            return startup::Refuse(run, "the selection window needs a display", ExitStatus::NothingToDo);
        }});
}

/// Goes when it is closed.
void ShowOnMap(config::Installation& installation, const QString& path) {
    QWidget* map = desktop::MakeMapWindow(installation, path.toStdString());
    map->setAttribute(Qt::WA_DeleteOnClose);
    map->resize(map->fontMetrics().averageCharWidth() * 140, map->fontMetrics().height() * 42);
    map->show();
}

void ReadInstallation(config::Installation& installation) {
    startup::LocateSettings(installation);
    startup::ReadSettings(installation);
}

/// A command in the windows: startup::Main in a worker, which waits while the selection window is open.
class Desktop {
public:
    /// `sources` are chosen in the selection window, if that is what the command asks for.
    explicit Desktop(std::string command, QStringList sources)
        : command_(std::move(command)),
          sources_(std::move(sources)),
          talk_(desktop::BoxesOver([this] { return Front(); },
                                   [this](const QString& line) { Report(line); })) {}

    /// Returns the exit status of the program.
    int Run() {
        worker_ = std::make_unique<desktop::Worker>(
            talk_, [this] { status_ = startup::Main(command_, talk_, {.showSelection = ShowSelection()}); },
            [this] { QApplication::exit(static_cast<int>(status_)); });
        if (startup::ModeOf(command_) != startup::Mode::Select && !startup::IsGo(command_)) {
            progress_ = std::make_unique<desktop::CommandWindow>(desktop::Text(command_), talk_);
            progress_->show();
        }
        QFontMetrics(QApplication::font()).height();  // fonts are loaded while the worker reads the settings
        QApplication::exec();
        delete georef_.data();
        worker_.reset();
        return static_cast<int>(status_);
    }

private:
    QWidget* Front() { return selection_ ? static_cast<QWidget*>(selection_.get()) : progress_.get(); }

    void Report(const QString& line) {
        std::fprintf(stderr, "%s\n", line.toUtf8().constData());
        if (progress_) progress_->Report(line);
    }

    /// Called in the worker.
    startup::SelectionWindow ShowSelection() {
        return [this](config::Run& run, std::string_view received) {
            auto closed = std::make_shared<std::promise<ExitStatus>>();
            bool runsGo = startup::IsGo(received), minimised = run.Options().minimised;
            isQuiet_ = run.Options().quiet;
            talk_.Later([this, closed, runsGo, minimised] { OpenSelection(closed, runsGo, minimised); });
            return closed->get_future().get();
        };
    }

    void OpenSelection(const std::shared_ptr<std::promise<ExitStatus>>& closed, bool runsGo, bool minimised) {
        try {
            ReadInstallation(installation_);
            selection_ = std::make_unique<desktop::SelectionWindow>(
                installation_, desktop::SelectionWindow::Options{.runsGo = runsGo,
                                                                 .isQuiet = isQuiet_,
                                                                 .others = Others(),
                                                                 .closed = [this, closed](ExitStatus status) {
                                                                     CloseStyling();
                                                                     closed->set_value(status);
                                                                 }});
        } catch (const std::exception& error) {
            talk_.ShowMessage(error.what());
            return closed->set_value(ExitStatus::NotUsable);
        }
        if (!sources_.isEmpty()) selection_->ChooseSources(sources_);
        if (!minimised) return selection_->show();
        selection_->setWindowTitle(QStringLiteral("BKGND Loading.."));
        selection_->showMinimized();
    }

    desktop::OtherWindows Others() {
        return {.options = [this](QWidget* parent) { desktop::frmBkgndOption(installation_, parent).exec(); },
                .library = desktop::CheckLibrary,
                .preview = [this](QWidget*, const QString& path) { ShowOnMap(installation_, path); },
                .georeference = [this](QWidget*, const QString& image) { Georeference(image); },
                .styling = [this](QWidget*, const QString& file) { OpenStyling(file); }};
    }

    void Georeference(const QString& image) {
        if (!georef_) {
            georef_ = new desktop::frmGeoRef(installation_);
            georef_->carved = [this](const QString& tile) {
                if (selection_) selection_->ResetToJPGlist(tile);
            };
        }
        georef_->show();
        georef_->raise();
        georef_->activateWindow();
        if (!image.isEmpty()) georef_->LoadJPG(image.toStdString());
    }

    void OpenStyling(const QString& file) {
        auto convert = [this](const QString& drawing, const QString& style, const QString& source) {
            Convert(drawing, style, source);
        };
        auto* window = new desktop::frmBkgndStyle(installation_, convert);
        styling_.emplace_back(window);
        if (!file.isEmpty()) window->LoadStyleFile(file.toStdString());
        window->show();
    }

    /// The package goes where that of the source would.
    void Convert(const QString& drawing, const QString& style, const QString& source) {
        auto edit = [this](const char* name) {
            return selection_->findChild<QLineEdit*>(QLatin1String(name));
        };
        std::string target =
            startup::TargetFor(source.toStdString(), edit("txttarget")->text().toStdString());
        selection_->ChooseSources({drawing});
        edit("txttarget")->setText(desktop::Text(target));
        edit("txtStyling")->setText(style);
        selection_->raise();
        selection_->activateWindow();
        selection_->findChild<QPushButton*>(QStringLiteral("btnGo"))->click();
    }

    /// What is unsaved in them is asked for, but nothing keeps the program any more.
    void CloseStyling() {
        for (const QPointer<QWidget>& window : styling_)
            if (window && !window->close()) delete window;
    }

    std::string command_;
    QStringList sources_;
    bool isQuiet_ = false;
    config::Installation installation_;
    desktop::Conversation talk_;
    ExitStatus status_ = ExitStatus::Failed;
    std::unique_ptr<desktop::CommandWindow> progress_;
    std::unique_ptr<desktop::SelectionWindow> selection_;
    QPointer<desktop::frmGeoRef> georef_;  ///< goes when it is closed
    std::vector<QPointer<QWidget>> styling_;
    std::unique_ptr<desktop::Worker> worker_;
};

int ShowPictures(const QStringList& paths) {
    config::Installation installation;
    try {
        ReadInstallation(installation);
    } catch (const std::exception& error) {
        QMessageBox::warning(nullptr, Texts::tr("Vexlator"), desktop::Text(error.what()));
        return static_cast<int>(ExitStatus::NotUsable);
    }
    for (const QString& path : paths) ShowOnMap(installation, path);
    return QApplication::exec();
}

int Perform(int argc, char** argv) {
    Arguments arguments = ParseArguments(argc, argv);
    if (arguments.wantsHelp) return std::fputs(help.data(), stdout) < 0;
    if (arguments.wantsVersion) return std::puts("vexlator-desktop " VEXLATOR_VERSION) < 0;
    if (!desktop::HasDisplay()) return static_cast<int>(PerformInTerminal(arguments.command));
    QApplication application(argc, argv);
    QApplication::setApplicationVersion(QStringLiteral(VEXLATOR_VERSION));
    desktop::SetUp(application, arguments.dark);
    bool onlyLooks =
        arguments.command.empty() && arguments.sources.isEmpty() && !arguments.pictures.isEmpty();
    QApplication::setQuitOnLastWindowClosed(onlyLooks);
    if (onlyLooks) return ShowPictures(arguments.pictures);
    return Desktop(arguments.command, arguments.pictures + arguments.sources).Run();
}

}  // namespace
}  // namespace vexlator

int main(int argc, char** argv) {
    vexlator::platform::HandleFileSignals();
    return vexlator::Perform(argc, argv);
}
