// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "startup/CommandLine.h"

#include <span>
#include <string>

/// How an installation gets its settings.
namespace vexlator::startup {

/// The installation folder: the environment variable VEXLATOR_HOME; else the program's own folder, if it
/// holds settings; else the folder remembered for this user; else the program's own.
std::string InstallationFolder();
/// Makes a folder, given as native path, the user's installation from now on. @throws platform::WriteError
void RememberInstallation(const std::string& folder);

/// Sets IniFilePath and the folders that depend on it.
/// @throws platform::ReadError for an existing settings file that cannot be read, because every setting would
/// seem to be missing
void LocateSettings(config::Installation& installation);

/// Stores the options of a GO command in gv.ini, where the selection window reads them, and in the run.
void KeepGoOptions(config::Run& run, std::span<const GoOption> options);

/// Reads the settings shared by all conversions from gv.ini.
void ReadSettings(config::Installation& installation);
config::KeyList SharedKeys();

}  // namespace vexlator::startup
