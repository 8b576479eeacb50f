// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "batch/Entry.h"
#include "startup/Conversions.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::batch {

/// The files that a command reads and writes, as far as its text and the disk show.
struct CommandPaths {
    /// Identifies the drawing that the command makes or reads, and with it the folder of the drawing's
    /// exports. Commands with the same key must not run at the same time.
    std::string drawing;
    /// Its existing input files: the drawing; or the sources with their companion files.
    std::vector<Source> sources;
    /// Native path of the drawing that the command adds to, so that it must not run twice; "" for commands
    /// that replace their output.
    std::string addedTo;
};

/// A command of a list as the program's arguments: its text, then the options behind it (--to, --set,
/// --strict,
/// --json, --yes), where blanks separate arguments and double quotes enclose one.
std::vector<std::string> ArgumentsOf(std::string_view command);
/// Whether the command of an entry has the option --json.
bool PrintsItsEntry(const Entry& entry);

/// The file as it is; nothing when it is not there.
std::vector<Source> SourceOf(const std::string& native);
CommandPaths PathsOf(const startup::Conversions& conversions, std::string_view command);

}  // namespace vexlator::batch
