// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "startup/CommandLine.h"

#include <span>
#include <string>

/// How a run comes to its settings.
namespace vexlator::startup {

/// The installation: the folder named by the environment variable VEXLATOR_HOME, else the program's own.
std::string InstallationFolder();

/// Fills IniFilePath and the folders that follow from it. @throws platform::ReadError when there is a file of
/// settings that cannot be read: every setting would seem to be missing
void LocateSettings(config::Run& run);

/// Keeps the options of a GO command in gv.ini, where the selection window looks for them.
void KeepGoOptions(config::Run& run, std::span<const GoOption> options);

/// Reads the settings that every conversion shares from gv.ini.
void ReadSettings(config::Run& run);

}  // namespace vexlator::startup
