// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The files of a new installation.
namespace vexlator::startup {

/// The text of gv.ini for an installation in a folder: every section and key, each with its meaning and its
/// default.
std::string DefaultIni(std::string_view nativeFolder);

/// A file below the installation folder.
struct InstallationFile {
    std::string_view path;
    std::string content;
};

/// All other text files: example templates, the projection file.
std::vector<InstallationFile> DefaultFiles();

}  // namespace vexlator::startup
