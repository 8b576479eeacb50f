// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Settings.h"

#include "config/LocateConfigFile.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Numbers.h"
#include "util/Paths.h"

#include <cstdlib>

namespace vexlator::startup {

std::string InstallationFolder() {
    const char* home = std::getenv("VEXLATOR_HOME");
    return home && *home ? platform::AbsolutePath(home) : platform::ExecutableFolder();
}

void LocateSettings(config::Session& session) {
    config::SharedSettings& settings = session.Settings();
    settings.ProgramFolder = InstallationFolder();
    settings.IniFilePath = config::LocateConfigFile(settings.ProgramFolder, "gv.ini");
    settings.ConfigFolder = util::FolderOf(settings.IniFilePath);
    if (!platform::FindExisting(settings.IniFilePath).empty()) platform::ReadWholeFile(settings.IniFilePath);
}

void KeepGoOptions(config::Session& session, std::span<const GoOption> options) {
    for (const auto& [key, value] : options) {
        if (platform::SameNoCase(key, "runmin"))
            session.Settings().RunMinimised |= util::NumberOf(value) == 1;
        else if (platform::SameNoCase(key, "txtmobilestyle"))
            session.WriteIni("MOBILESTYLING", "FILE", value);
        else if (platform::SameNoCase(key, "arc10"))
            session.WriteIni("ESRI", "ARC10", value);
        else
            session.WriteIni("OPTION", key, value);
    }
}

void ReadSettings(config::Session& session) {
    config::SharedSettings& settings = session.Settings();
    settings.ATPDirectory = session.ReadIni("GENERAL", "ATPDirectory");
    settings.FMODirectory = session.ReadIni("GENERAL", "FMODirectory");
    settings.SymbolsDirectory = session.ReadIni("GENERAL", "SymbolsDirectory");
    settings.WorkFlowDirectory = session.ReadIni("GENERAL", "WorkFlowDirectory");
    settings.WorkFlowSystem = session.ReadIni("GENERAL", "WorkFlowSystem");
    settings.TempDirectory = session.ReadIni("GENERAL", "TempDirectory");
    settings.AutoLaunchExport = session.ReadIniFlag("GENERAL", "AutoLaunchExport");
    settings.DebugMode = session.ReadIniFlag("GENERAL", "VEXLATORDEBUG");
    settings.ReProcessFieldNames = session.ReadIniFlag("HOUSEKEEPING", "ReProcessFieldNames");
    settings.MatchNames = session.ReadIniFlag("GENERICOUT", "MATCHNAMES");
    settings.CreateZip = session.ReadIniFlag("GENERICOUT", "CREATEZIP");
    settings.SHORTENFIELDSON = session.ReadIni("GENERICOUT", "SHORTENFIELDSON");
    settings.InOutLog = session.ReadIni("GENERICIN", "INOUTLOG");
    if (settings.TempDirectory.empty()) settings.TempDirectory = "c:\\temp";
}

}  // namespace vexlator::startup
