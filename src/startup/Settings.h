// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "startup/CommandLine.h"

#include <span>
#include <string>

/// How an installation comes to its settings.
namespace vexlator::startup {

/// The installation: the folder named by the environment variable VEXLATOR_HOME; else the program's own, if
/// it holds settings; else the one that is remembered for this user; else the program's own.
std::string InstallationFolder();
/// Takes a folder, a native path, for the user's installation from now on. @throws platform::WriteError
void RememberInstallation(const std::string& folder);

/// Fills IniFilePath and the folders that follow from it. @throws platform::ReadError when there is a file of
/// settings that cannot be read: every setting would seem to be missing
void LocateSettings(config::Installation& installation);

/// Keeps the options of a GO command in gv.ini, where the selection window looks for them, and in the run.
void KeepGoOptions(config::Run& run, std::span<const GoOption> options);

/// Reads the settings that every conversion shares from gv.ini.
void ReadSettings(config::Installation& installation);
config::KeyList SharedKeys();

}  // namespace vexlator::startup
