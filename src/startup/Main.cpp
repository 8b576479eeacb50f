// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Main.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Signals.h"
#include "startup/CommandLine.h"
#include "startup/ConversionRun.h"
#include "startup/Findings.h"
#include "startup/Keys.h"
#include "startup/Settings.h"
#include "startup/Tidied.h"
#include "util/Files.h"
#include "util/Text.h"

#include <exception>
#include <string>

namespace vexlator::startup {

namespace {

/// A GO command stores its options in gv.ini and continues as SELECT, like an empty command.
std::string AfterGo(config::Run& run, std::string_view received) {
    if (!received.empty() && !IsGo(received)) return std::string(received);
    KeepGoOptions(run, GoOptions(received));
    return "SELECT";
}

bool SettingsAreReadable(config::Installation& installation, config::Run& run) {
    try {
        LocateSettings(installation);
        return true;
    } catch (const platform::ReadError& error) {
        run.Ui().ShowMessage(error.what());
        return false;
    }
}

/// Reports a missing folder that every conversion needs.
bool InstallationIsUsable(config::Run& run) {
    const config::SharedSettings& settings = run.Settings();
    bool noTemplates = settings.ATPDirectory.empty();
    if (!noTemplates && !settings.SymbolsDirectory.empty()) return true;
    run.Ui().ShowMessage(noTemplates ? "No ATPfolder" : "No SYMfolder");
    run.Ui().Report("vexlator: no " + std::string(noTemplates ? "ATPDirectory" : "SymbolsDirectory") +
                    " in " + platform::NativePath(settings.IniFilePath) +
                    "; vexlator --init FOLDER makes an installation, VEXLATOR_HOME names it");
    return false;
}

/// Applies the settings for this run; reports an unknown key or an invalid value.
bool TakeSettings(config::Installation& installation, config::Run& run, const MainOptions& options) {
    for (const config::IniOverride& setting : options.settings) {
        if (std::string reason = WhyNotSet(setting, AllKeys()); !reason.empty()) {
            Refuse(run, "--set " + reason, ExitStatus::NotUsable);
            return false;
        }
        installation.Override(setting);
    }
    return true;
}

void TakeFolder(config::Run& run, const std::string& folder) {
    if (folder.empty()) return;
    run.Options().folder = platform::AbsolutePath(folder);
    util::MakeFolderTree(run.Options().folder);
    platform::RequireFolder(run.Options().folder);
}

/// Removes the switches from the command.
std::string WithoutSwitches(config::RunOptions& options, std::string text) {
    options.quiet |= TakeQuiet(text);
    options.extent = TakeExtent(text).value_or(config::ImportExtentBox{});
    return text;
}

/// A GO command without -QUIET, which it may have at any place; other texts as they are.
std::string QuietTaken(config::RunOptions& options, std::string_view received) {
    std::string text(received);
    options.quiet = TakeQuiet(text);
    text = util::Trim(text);
    return IsGo(text) ? text : std::string(received);
}

ExitStatus Perform(config::Installation& installation, config::Run& run, std::string_view commandText,
                   const MainOptions& options) {
    if (!SettingsAreReadable(installation, run)) return ExitStatus::NotUsable;
    if (!TakeSettings(installation, run, options)) return ExitStatus::NotUsable;
    std::string received = QuietTaken(run.Options(), commandText);
    std::string text = AfterGo(run, received);
    ReadSettings(installation);
    if (!InstallationIsUsable(run)) return ExitStatus::NotUsable;
    run.DebugMessage("ATP:" + run.Settings().ATPDirectory);
    run.DebugMessage(text);
    util::MakeFolderTree(run.Settings().TempDirectory);
    if (ExtentIsWrong(text))
        return Refuse(
            run,
            "the extent of " + text +
                " is not understood; write ?BOX minX,minY,maxX,maxY ?, with a blank before the last ?",
            ExitStatus::NotUsable);
    TakeFolder(run, options.folder);
    text = Tidied(options.conversions, WithoutSwitches(run.Options(), std::move(text)));
    switch (ModeOf(text)) {
        case Mode::Import:
            return RunImport(run, options.conversions, text);
        case Mode::Export:
            return RunExport(run, options.conversions, text);
        case Mode::Select:
            break;
    }
    return options.showSelection ? options.showSelection(run, received) : ExitStatus::NothingToDo;
}

/// Catches exceptions of a conversion and shows them to the user.
ExitStatus PerformShowingErrors(config::Installation& installation, config::Run& run,
                                std::string_view received, const MainOptions& options) {
    try {
        return Perform(installation, run, received, options);
    } catch (const platform::Stopped&) {
        run.Ui().Report("stopped before the conversion began");
        return ExitStatus::Interrupted;
    } catch (const std::exception& error) {
        ShowError(run, error);
        return ExitStatus::Failed;
    }
}

}  // namespace

ExitStatus Main(std::string_view commandText, ui::UserInterface& userInterface, const MainOptions& options) {
    platform::RaiseOpenFileLimit();
    config::Installation installation(options.clock);
    config::Run run(installation, userInterface);
    ExitStatus status = PerformShowingErrors(installation, run, commandText, options);
    if (options.whenEnded) options.whenEnded(run);
    return status;
}

}  // namespace vexlator::startup
