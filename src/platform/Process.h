// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

/// The user, the system and other programs.
namespace vexlator::platform {

/// Login name of the person running the program.
std::string CurrentUser();

/// ISO 3166 country of the system's locale settings, as in "GB"; "UNK" when they name none.
std::string LocaleCountry();

/// Starts a program from a command line (blanks separate arguments, double quotes enclose one; the program is
/// a path text or a name to be found by the system) and waits until it ends. Returns its exit status, or -1
/// when it could not be started or a signal ended it. `whileWaiting`, when given, is called some fifty times
/// a second.
int RunProgram(const std::string& commandLine, const std::function<void()>& whileWaiting = {});

/// Becomes another program, which gets the arguments as they stand and this process's streams. Returns only
/// when that program cannot be started.
void ReplaceProcess(const std::string& nativePath, std::vector<std::string> arguments);

/// Asks the desktop to open a document with its registered program; does not wait. False when it cannot.
bool OpenWithDesktop(const std::string& nativePath);

/// Suspends this thread.
void Sleep(double seconds);

}  // namespace vexlator::platform
