// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace vexlator::platform {

/// What tells a file from every other that has its name before or after it: its number, and because a program
/// that writes over a file keeps the number, its size and the moment when it was written last.
struct FileMark {
    std::int64_t number = 0, size = 0, seconds = 0, nanoseconds = 0;
    bool operator==(const FileMark&) const = default;
};

/// Of what has that native path; of a link itself. All 0 when there is nothing. Of a folder only the number,
/// for the rest changes with what lies in it.
FileMark MarkOf(const std::string& native);

}  // namespace vexlator::platform
