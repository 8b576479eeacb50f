// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "BackgroundBuilder/Command.h"

#include "platform/AsciiCase.h"
#include "platform/Errors.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Paths.h"

namespace vexlator::backgroundbuilder {

Command ParseCommand(const std::vector<std::string>& arguments) {
    Command command;
    for (std::size_t i = 0; i < arguments.size(); i += 2) {
        std::string keyword = platform::UpperAscii(arguments[i]);
        if (i + 1 == arguments.size()) throw WrongUse(arguments[i] + ": has no value behind it");
        const std::string& value = arguments[i + 1];
        if (keyword == "SOURCE")
            command.source = value;
        else if (keyword == "TARGET")
            command.target = value;
        else if (keyword == "ALL" && (value == "0" || value == "1"))
            command.takesAll = value == "1";
        else
            throw WrongUse(arguments[i] + " " + value + ": not understood");
    }
    if (command.source.empty()) throw WrongUse("SOURCE: no file is named");
    if (command.target.empty()) throw WrongUse("TARGET: no package is named");
    if (!platform::SameNoCase(util::ExtensionOf(command.target), "GRP"))
        throw WrongUse("TARGET " + command.target + ": not the name of a package, NAME.GRP");
    return command;
}

std::vector<std::string> SourcesOf(const Command& command) {
    std::vector<std::string> sources;
    if (!command.takesAll) {
        sources.push_back(command.source);
    } else {
        std::string folder = util::FolderOf(platform::AbsolutePath(command.source));
        std::string extension = util::ExtensionOf(command.source);
        for (const std::string& name : platform::ListFiles(folder))
            if (platform::SameNoCase(util::ExtensionOf(name), extension))
                sources.push_back(util::JoinPath(folder, name));
    }
    if (sources.empty() || (!command.takesAll && !platform::FileExists(command.source)))
        throw platform::ReadError(platform::NativePath(command.source), "", "no such file");
    return sources;
}

UpdateOptions ReadUpdateOptions(const config::Run& run) {
    std::string file = util::JoinPath(run.Settings().ConfigFolder, "BackgroundBuilder.ini");
    UpdateOptions options;
    options.appliesUpdates = run.ReadIniFlag("SELECT", "COU", file);
    options.keepsState = run.ReadIniFlag("SELECT", "mmMDB", file);
    options.backupFolder = run.ReadIni("SELECT", "MMBACKUP", file);
    if (options.backupFolder.empty()) options.backupFolder = "c:\\MMbackup";
    return options;
}

}  // namespace vexlator::backgroundbuilder
