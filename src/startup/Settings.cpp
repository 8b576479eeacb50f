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

void LocateSettings(config::Run& run) {
    config::SharedSettings& settings = run.Settings();
    settings.ProgramFolder = InstallationFolder();
    settings.IniFilePath = config::LocateConfigFile(settings.ProgramFolder, "gv.ini");
    settings.ConfigFolder = util::FolderOf(settings.IniFilePath);
    if (!platform::FindExisting(settings.IniFilePath).empty()) platform::ReadWholeFile(settings.IniFilePath);
}

void KeepGoOptions(config::Run& run, std::span<const GoOption> options) {
    for (const auto& [key, value] : options) {
        if (platform::SameNoCase(key, "runmin"))
            run.Settings().RunMinimised |= util::NumberOf(value) == 1;
        else if (platform::SameNoCase(key, "txtmobilestyle"))
            run.WriteIni("MOBILESTYLING", "FILE", value);
        else if (platform::SameNoCase(key, "arc10"))
            run.WriteIni("ESRI", "ARC10", value);
        else
            run.WriteIni("OPTION", key, value);
    }
}

void ReadSettings(config::Run& run) {
    config::SharedSettings& settings = run.Settings();
    settings.ATPDirectory = run.ReadIni("GENERAL", "ATPDirectory");
    settings.FMODirectory = run.ReadIni("GENERAL", "FMODirectory");
    settings.SymbolsDirectory = run.ReadIni("GENERAL", "SymbolsDirectory");
    settings.WorkFlowDirectory = run.ReadIni("GENERAL", "WorkFlowDirectory");
    settings.WorkFlowSystem = run.ReadIni("GENERAL", "WorkFlowSystem");
    settings.TempDirectory = run.ReadIni("GENERAL", "TempDirectory");
    settings.AutoLaunchExport = run.ReadIniFlag("GENERAL", "AutoLaunchExport");
    settings.DebugMode = run.ReadIniFlag("GENERAL", "VEXLATORDEBUG");
    settings.ReProcessFieldNames = run.ReadIniFlag("HOUSEKEEPING", "ReProcessFieldNames");
    settings.MatchNames = run.ReadIniFlag("GENERICOUT", "MATCHNAMES");
    settings.CreateZip = run.ReadIniFlag("GENERICOUT", "CREATEZIP");
    settings.SHORTENFIELDSON = run.ReadIni("GENERICOUT", "SHORTENFIELDSON");
    settings.InOutLog = run.ReadIni("GENERICIN", "INOUTLOG");
    if (settings.TempDirectory.empty()) settings.TempDirectory = "c:\\temp";
}

}  // namespace vexlator::startup
