// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "platform/FileStamp.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::batch {

/// How a command ended. A command that adds to a drawing also has a line at its start.
enum class Status { NotRun, Done, Failed, TimedOut, Crashed, Interrupted, Begun };
std::string_view NameOf(Status status);

/// An input file of a command, with its state at the start of the command.
struct Source {
    std::string path;  ///< native
    std::uint64_t size = 0;
    std::string time;  ///< time of last write
    bool operator==(const Source&) const = default;
};

/// A line of the journal: the result of one command. Times are UTC, as in 2026-11-25T16:58:37.123Z.
struct Entry {
    std::string command;
    std::string folder;  ///< the current folder, to which relative paths of the command refer
    std::string start, end;
    double seconds = 0;
    Status status = Status::NotRun;
    int exit = 0;  ///< exit status; 128 plus the signal that ended the command
    std::uint64_t layers = 0, features = 0;
    std::vector<std::string> outputs;  ///< native paths of the new drawing or folder
    std::string losses;                ///< losses of the output
    std::vector<std::string> messages;
    std::vector<Source> sources;

    /// Copies the results of a conversion.
    void TakeOutcome(const config::Outcome& outcome, const std::string& lost);
    /// One line of JSON, without its end. "target" is the first output, "" when nothing was made.
    std::string ToJson() const;
    /// Missing members keep their defaults. Nothing for a text that is not a JSON object.
    static std::optional<Entry> FromJson(std::string_view line);
};

/// The printed text of a command as messages: indented lines belong to the line above. The line of losses is
/// left out.
std::vector<std::string> MessagesOf(std::string_view output, const std::string& losses);

/// The text of a time, with this number of digits for the fraction of a second.
std::string TimeText(platform::SystemTime time, int digits = 3);
platform::SystemTime Now();
/// Native path of the folder to which relative paths refer.
std::string CurrentFolder();

}  // namespace vexlator::batch
