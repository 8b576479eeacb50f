// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Settings.h"

#include "config/LocateConfigFile.h"
#include "platform/AsciiCase.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"

#include <cstdlib>

namespace vexlator::startup {

namespace {

using config::SharedSettings;
using Keys = config::Keys<SharedSettings>;

constexpr config::KeyOf<SharedSettings> keys[] = {
    Keys::Folder("GENERAL", "ATPDirectory", &SharedSettings::ATPDirectory,
                 "folder of attribute templates (.ATP), one template per feature code. Required", "",
                 "@FOLDER@/ATP"),
    Keys::Folder("GENERAL", "SymbolsDirectory", &SharedSettings::SymbolsDirectory,
                 "folder of symbol drawings (.VDF). DEFAULT.VDF is the symbol of feature codes without a "
                 "symbol of their own. Required",
                 "", "@FOLDER@/Symbols"),
    Keys::Folder("GENERAL", "FMODirectory", &SharedSettings::FMODirectory,
                 "folder of database definitions (.FMO)", "no definitions", "@FOLDER@/FMO"),
    Keys::Folder("GENERAL", "WorkFlowDirectory", &SharedSettings::WorkFlowDirectory,
                 "root of the job folders, which are named engineer/project/job", "drawings belong to no job",
                 "@FOLDER@/Jobs"),
    Keys::Folder("GENERAL", "WorkFlowSystem", &SharedSettings::WorkFlowSystem,
                 "folder of the workflow database WorkFlow.MDB, which records exports", "nothing is recorded",
                 "@FOLDER@/WorkFlow"),
    Keys::Folder("GENERAL", "TempDirectory", &SharedSettings::TempDirectory, "scratch folder", "c:\\temp",
                 "@FOLDER@/Temp"),
    Keys::Flag("GENERAL", "AutoLaunchExport", &SharedSettings::AutoLaunchExport,
               "the program opens the result of each export"),
    Keys::Flag("GENERAL", "VEXLATORDEBUG", &SharedSettings::DebugMode,
               "the program shows diagnostic messages: paths, queries, values"),
    Keys::Text("GENERICIN", "INOUTLOG", &SharedSettings::InOutLog,
               "path of the run log, which gets one line per event. It must be a file, not a named pipe",
               "no log"),
    Keys::Flag("GENERICOUT", "CREATEZIP", &SharedSettings::CreateZip,
               "the folder of each export is packed into a ZIP archive"),
    Keys::Flag("GENERICOUT", "MATCHNAMES", &SharedSettings::MatchNames,
               "an attribute value goes to the column with its name. Off: it goes to the column at its "
               "position, even if the names differ. A message reports differing names in both cases",
               true),
    Keys::Text("GENERICOUT", "SHORTENFIELDSON", &SharedSettings::SHORTENFIELDSON,
               "separator that ends an attribute value. The separator and the text after it are dropped",
               "values stay whole"),
    Keys::Flag("HOUSEKEEPING", "ReProcessFieldNames", &SharedSettings::ReProcessFieldNames,
               "shapefile exports use the second field name in a template, as in NAME<SECOND>"),
};

std::string MemoryPath() {
    return util::JoinPath(platform::UserConfigFolder(), "vexlator/home");
}

std::string RememberedInstallation() {
    try {
        std::string folder = platform::ReadWholeFile(MemoryPath());
        return folder.substr(0, folder.find_first_of("\r\n"));
    } catch (const platform::ReadError&) {
        return "";
    }
}

bool HoldsSettings(const std::string& folder) {
    return platform::FileExists(util::JoinPath(folder, "gv.ini")) ||
           platform::FileExists(util::JoinPath(folder, "application.ini"));
}

}  // namespace

std::string InstallationFolder() {
    if (const char* home = std::getenv("VEXLATOR_HOME"); home && *home) return platform::AbsolutePath(home);
    std::string beside = platform::ExecutableFolder();
    std::string remembered = HoldsSettings(beside) ? "" : RememberedInstallation();
    return remembered.empty() ? beside : remembered;
}

void RememberInstallation(const std::string& folder) {
    std::string path = MemoryPath();
    util::MakeFolderTree(util::FolderOf(path));
    platform::ReplaceFile(path, folder + "\n");
}

void LocateSettings(config::Installation& installation) {
    config::SharedSettings& settings = installation.Settings();
    settings.ProgramFolder = InstallationFolder();
    settings.IniFilePath = config::LocateConfigFile(settings.ProgramFolder, "gv.ini");
    settings.ConfigFolder = util::FolderOf(settings.IniFilePath);
    if (!platform::FindExisting(settings.IniFilePath).empty()) platform::ReadWholeFile(settings.IniFilePath);
}

void KeepGoOptions(config::Run& run, std::span<const GoOption> options) {
    for (const auto& [key, value] : options) {
        if (platform::SameNoCase(key, "runmin"))
            run.Options().minimised |= util::NumberOf(value) == 1;
        else if (platform::SameNoCase(key, "txtmobilestyle"))
            run.WriteIni("MOBILESTYLING", "FILE", value);
        else if (platform::SameNoCase(key, "arc10"))
            run.WriteIni("ESRI", "ARC10", value);
        else
            run.WriteIni("OPTION", key, value);
    }
}

void ReadSettings(config::Installation& installation) {
    // An empty value means no folder, whatever was read before.
    config::SharedSettings fresh;
    fresh.ProgramFolder = installation.Settings().ProgramFolder;
    fresh.IniFilePath = installation.Settings().IniFilePath;
    fresh.ConfigFolder = installation.Settings().ConfigFolder;
    installation.Settings() = config::ReadKeys<config::SharedSettings>(installation, keys, fresh);
}

config::KeyList SharedKeys() {
    return config::ListOf<config::SharedSettings>(keys);
}

}  // namespace vexlator::startup
