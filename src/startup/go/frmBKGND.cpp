// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/go/frmBKGND.h"

#include "config/OutsideProgram.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Paths.h"

namespace vexlator::startup {

namespace {

struct LaunchSettings {
    std::string backupFolder = "c:\\MMbackup";
    bool maintainsUpdates = false;
};

using Keys = config::Keys<LaunchSettings>;

constexpr config::KeyOf<LaunchSettings> keys[] = {
    Keys::Folder("GRP", "MMBACKUP", &LaunchSettings::backupFolder,
                 "folder where the background builder keeps topography for change-only updates",
                 "c:\\MMbackup"),
    Keys::Flag("GRP", "MMMAINTAINCOU", &LaunchSettings::maintainsUpdates,
               "the background builder keeps topography for change-only updates"),
};

}  // namespace

std::string frmBKGND::GoNow(std::string_view source, std::string_view target, bool all, bool applyUpdates,
                            const std::function<void()>& whileWaiting) {
    platform::RequireFolder(util::FolderOf(target));
    std::string program = config::FindSuiteProgram(run_, "BackgroundBuilder.exe");
    if (program.empty())
        return "BackgroundBuilder.exe is not in " + platform::NativePath(run_.Settings().ProgramFolder);
    auto settings = config::ReadKeys<LaunchSettings>(run_.Installation(), keys);
    std::string options = util::JoinPath(run_.Settings().ConfigFolder, "BackgroundBuilder.ini");
    run_.WriteIni("SELECT", "COU", applyUpdates ? "1" : "0", options);
    run_.WriteIni("SELECT", "MMBACKUP", settings.backupFolder, options);
    run_.WriteIni("SELECT", "mmMDB", settings.maintainsUpdates ? "1" : "0", options);
    config::OutsideProgram builder(run_, program,
                                   "SOURCE \"" + platform::NativePath(source) + "\" TARGET \"" +
                                       platform::NativePath(target) + "\" ALL " + (all ? "1" : "0"));
    return builder.WaitForEnd(whileWaiting) ? "" : builder.Problem();
}

config::KeyList BackgroundLaunchKeys() {
    return config::ListOf<LaunchSettings>(keys);
}

}  // namespace vexlator::startup
