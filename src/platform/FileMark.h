// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace vexlator::platform {

/// Identifies a state of a file: its file number, size and time of last write. The number alone is not
/// enough, because a program that overwrites a file keeps the number.
struct FileMark {
    std::int64_t number = 0, size = 0, seconds = 0, nanoseconds = 0;
    bool operator==(const FileMark&) const = default;
};

/// The mark of a native path; of a link itself, not its target. All 0 if there is nothing. A folder has the
/// number only, because its size and time change with its contents.
FileMark MarkOf(const std::string& native);

}  // namespace vexlator::platform
