// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The files that a new installation starts with.
namespace vexlator::startup {

/// The text of gv.ini for an installation in a folder: every section and key, each with what it does and what
/// it means when it is empty.
std::string DefaultIni(std::string_view nativeFolder);

/// A file below the installation folder.
struct InstallationFile {
    std::string_view path;
    std::string content;
};

/// Everything else that is text: example templates, the projection file.
std::vector<InstallationFile> DefaultFiles();

}  // namespace vexlator::startup
