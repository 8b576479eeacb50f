// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// The user, the system and other programs.
namespace vexlator::platform {

/// Login name of the person running the program.
std::string CurrentUser();

/// ISO 3166 country of the system's locale settings, as in "GB"; "UNK" if they name none.
std::string LocaleCountry();

/// Runs a program from a command line and waits until it ends. Blanks separate arguments, double quotes
/// enclose one. The program is a path text or a name that the system can find. Returns its exit status, or -1
/// if it could not be started or a signal ended it. `whileWaiting`, if given, is called about fifty times a
/// second.
int RunProgram(const std::string& commandLine, const std::function<void()>& whileWaiting = {});

/// The arguments that a command line holds: blanks separate them, double quotes enclose one.
std::vector<std::string> SplitArguments(std::string_view line);

struct ProgramResult {
    int status = -1;     ///< exit status; -1 when it could not be started or a signal ended it
    std::string output;  ///< what it printed, messages too
};
/// Runs a program, found by the system when its name has no folder, and waits until it ends. It reads
/// nothing, and signals from the terminal do not reach it.
ProgramResult CaptureProgram(std::vector<std::string> arguments);
/// The program and the arguments of a command line as RunProgram() takes it; the program's path is native.
std::vector<std::string> ProgramArguments(const std::string& commandLine);

/// Becomes another program, which gets the arguments as they stand and this process's streams. Returns only
/// when that program cannot be started.
void ReplaceProcess(const std::string& nativePath, std::vector<std::string> arguments);

/// Asks the desktop to open a document with its registered program; does not wait. False on failure.
bool OpenWithDesktop(const std::string& nativePath);

/// Suspends this thread.
void Sleep(double seconds);

}  // namespace vexlator::platform
