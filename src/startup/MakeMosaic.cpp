// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/MakeMosaic.h"

#include "background/package/Mosaic.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Counted.h"
#include "util/Paths.h"

#include <algorithm>
#include <exception>
#include <string>

namespace vexlator::startup {

namespace {

/// Sub-folders with the name of a package in them, valid or not.
std::size_t CountPackages(const std::string& folder) {
    std::vector<std::string> names = platform::ListFolders(folder);
    return static_cast<std::size_t>(std::ranges::count_if(names, [&](const std::string& name) {
        return !name.starts_with('.') &&
               platform::FileExists(util::JoinPath(util::JoinPath(folder, name), name + ".GRP"));
    }));
}

ExitStatus Assemble(const std::string& folder, ui::UserInterface& ui) {
    std::string native = platform::NativePath(folder);
    if (!platform::FolderExists(folder)) {
        ui.Report("vexlator: there is no folder " + native);
        return ExitStatus::NothingToDo;
    }
    std::size_t taken = background::BuildMosaicIndex(folder, false, ui), found = CountPackages(folder);
    if (taken == 0) {
        ui.Report("vexlator: no sub-folder of " + native + " holds a package (S/S.GRP), so no map was made");
        return found > 0 ? ExitStatus::Failed : ExitStatus::NothingToDo;
    }
    ui.Report("made the map " + native + " of " + util::Counted(taken, "package"));
    if (taken == found) return ExitStatus::Done;
    ui.Report("left out " + util::Counted(found - taken, "package") + " without a complete index");
    return ExitStatus::Failed;
}

}  // namespace

ExitStatus MakeMosaic(std::string_view folder, ui::UserInterface& userInterface) {
    try {
        return Assemble(platform::AbsolutePath(folder), userInterface);
    } catch (const std::exception& error) {
        userInterface.ShowMessage(error.what());
        return ExitStatus::Failed;
    }
}

}  // namespace vexlator::startup
