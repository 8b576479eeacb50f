// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "batch/Entry.h"
#include "startup/Conversions.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::batch {

/// What a command reads and writes, as far as its text and the disk tell.
struct CommandPaths {
    /// Names the drawing that the command makes or reads, and with it the folder of the drawing's exports.
    /// Commands with the same one must not run at the same time.
    std::string drawing;
    /// The files that are there of those that it reads: the drawing; or the sources, with the files that
    /// belong to them.
    std::vector<Source> sources;
    /// Native path of the drawing that the command adds to, so that it must not run twice; "" for others,
    /// which replace what they make.
    std::string addedTo;
};
/// The file as it is; nothing when it is not there.
std::vector<Source> SourceOf(const std::string& native);
CommandPaths PathsOf(const startup::Conversions& conversions, std::string_view command);

}  // namespace vexlator::batch
