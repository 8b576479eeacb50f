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

/// How a command ended. One that adds to a drawing has a line when it begins, too.
enum class Status { NotRun, Done, Failed, TimedOut, Crashed, Interrupted, Begun };
std::string_view NameOf(Status status);

/// A file that a command reads, as it was when the command began.
struct Source {
    std::string path;  ///< native
    std::uint64_t size = 0;
    std::string time;  ///< when it was last written
    bool operator==(const Source&) const = default;
};

/// A line of the journal: what became of one command. Times are UTC, as in 2026-11-25T16:58:37.123Z.
struct Entry {
    std::string command;
    std::string folder;  ///< the current folder, which relative paths of the command begin in
    std::string start, end;
    double seconds = 0;
    Status status = Status::NotRun;
    int exit = 0;  ///< exit status; 128 and the signal that ended the command
    std::uint64_t layers = 0, features = 0;
    std::vector<std::string> outputs;  ///< native paths of the drawing or folder that was made
    std::string losses;                ///< what the output could not hold
    std::vector<std::string> messages;
    std::vector<Source> sources;

    /// Takes over what a conversion made.
    void TakeOutcome(const config::Outcome& outcome, const std::string& lost);
    /// One line of JSON, without its end.
    std::string ToJson() const;
    /// Members that are missing keep their defaults. Nothing for what is no JSON object.
    static std::optional<Entry> FromJson(std::string_view line);
};

/// What a command printed, as messages: indented lines belong to the one above. The line of losses is left
/// out.
std::vector<std::string> MessagesOf(std::string_view output, const std::string& losses);

/// The text of a time, with that many digits of a second.
std::string TimeText(platform::SystemTime time, int digits = 3);
platform::SystemTime Now();
/// Native path of the folder that relative paths begin in.
std::string CurrentFolder();

}  // namespace vexlator::batch
