// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/CoordinateLibrary.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Registry.h"
#include "util/Files.h"
#include "util/Paths.h"

#include <exception>

namespace vexlator::startup {

std::string CoordinateLibrary::Message() const {
    if (state == State::CanCopy)
        return "The file is located in installation location (" + platform::NativePath(installed) +
               ").\nqxTools Coordinate Library is missing from expected location (" +
               platform::NativePath(expected) + ")\nCopy to expected location?";
    return state == State::Missing ? "qxTools.csw is missing from " + platform::NativePath(installed) : "";
}

bool CoordinateLibrary::Copy() const {
    try {
        util::MakeFolderTree(util::FolderOf(expected));
        util::CopyFiles(installed, expected);
    } catch (const std::exception&) {
        // The existence of the file decides.
    }
    return platform::FileExists(expected);
}

CoordinateLibrary CheckCoordinateLibrary() {
    CoordinateLibrary library;
    std::string folder = platform::RegistryValue(platform::Hive::Machine, "SOFTWARE\\Veltrom\\Share",
                                                 "CurrentGeoDataDirectory");
    if (folder.empty()) return library;
    library.expected = util::JoinPath(folder, "qxtools.csw");
    library.installed = "c:\\program files\\common files\\veltrom\\geodata\\qxtools.csw";
    if (platform::FileExists(library.expected)) return library;
    library.state = platform::FileExists(library.installed) ? CoordinateLibrary::State::CanCopy
                                                            : CoordinateLibrary::State::Missing;
    return library;
}

}  // namespace vexlator::startup
