// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Main.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Signals.h"
#include "startup/CommandLine.h"
#include "startup/ConversionRun.h"
#include "startup/Settings.h"
#include "startup/Slips.h"
#include "util/Files.h"
#include "util/Text.h"

#include <exception>
#include <new>
#include <string>

namespace vexlator::startup {

namespace {

/// A GO command leaves its options in gv.ini and goes on as SELECT; so does an empty one.
std::string AfterGo(config::Session& session, std::string_view received) {
    if (!received.empty() && !IsGo(received)) return std::string(received);
    KeepGoOptions(session, GoOptions(received));
    return "SELECT";
}

bool SettingsAreReadable(config::Session& session) {
    try {
        LocateSettings(session);
        return true;
    } catch (const platform::ReadError& error) {
        session.Ui().ShowMessage(error.what());
        return false;
    }
}

/// Tells when the settings lack a folder that no conversion can do without.
bool InstallationIsUsable(config::Session& session) {
    const config::SharedSettings& settings = session.Settings();
    bool noTemplates = settings.ATPDirectory.empty();
    if (!noTemplates && !settings.SymbolsDirectory.empty()) return true;
    session.Ui().ShowMessage(noTemplates ? "No ATPfolder" : "No SYMfolder");
    session.Ui().Report("vexlator: no " + std::string(noTemplates ? "ATPDirectory" : "SymbolsDirectory") +
                        " in " + platform::NativePath(settings.IniFilePath) +
                        "; vexlator --init FOLDER makes an installation, VEXLATOR_HOME names it");
    return false;
}

/// Takes the switches off the command, and its quotes. The quotes go before the blanks do: a quoted command
/// that a blank follows keeps its last quote.
std::string WithoutSwitches(config::SharedSettings& settings, std::string text) {
    settings.Quiet = TakeQuiet(text);
    settings.ImportExtent = TakeExtent(text).value_or(config::ImportExtentBox{});
    return std::string(util::Trim(WithoutQuotes(text)));
}

ExitStatus Run(config::Session& session, std::string_view received, const MainOptions& options) {
    if (!SettingsAreReadable(session)) return ExitStatus::NotUsable;
    std::string text = AfterGo(session, received);
    ReadSettings(session);
    if (!InstallationIsUsable(session)) return ExitStatus::NotUsable;
    session.DebugMessage("ATP:" + session.Settings().ATPDirectory);
    session.DebugMessage(text);
    util::MakeFolderTree(session.Settings().TempDirectory);
    if (ExtentIsWrong(text))
        return Refuse(session,
                      "the extent of " + text +
                          " is not understood; it is written ?BOX minX,minY,maxX,maxY ?, with "
                          "the blank before the last ?",
                      ExitStatus::NotUsable);
    text = Tidied(options.conversions, WithoutSwitches(session.Settings(), std::move(text)));
    switch (ModeOf(text)) {
        case Mode::Import:
            return RunImport(session, options.conversions, text);
        case Mode::Export:
            return RunExport(session, options.conversions, text);
        case Mode::Select:
            break;
    }
    return options.showSelection ? options.showSelection(session, received) : ExitStatus::NothingToDo;
}

ExitStatus Fail(config::Session& session, const std::string& reason) {
    session.Ui().ShowMessage(reason);
    return ExitStatus::Failed;
}

}  // namespace

ExitStatus Main(std::string_view commandText, ui::UserInterface& userInterface, const MainOptions& options) {
    platform::RaiseOpenFileLimit();
    config::Session session(userInterface, options.clock);
    try {
        return Run(session, commandText, options);
    } catch (const platform::Stopped&) {
        session.Ui().Report("stopped before the conversion began");
        return ExitStatus::Interrupted;
    } catch (const std::bad_alloc&) {
        return Fail(session, "Not enough memory");
    } catch (const std::exception& error) {
        return Fail(session, error.what());
    }
}

}  // namespace vexlator::startup
