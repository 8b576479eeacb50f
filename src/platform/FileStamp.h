// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace vexlator::platform {

using SystemTime = std::chrono::time_point<std::chrono::system_clock, std::chrono::nanoseconds>;

/// Shows whether a file has changed: its size in bytes and its time of last write.
struct FileStamp {
    std::uint64_t size = 0;
    SystemTime time;
};

/// Nothing if there is no such file. The path is a native one.
std::optional<FileStamp> StampOf(const std::string& native);

}  // namespace vexlator::platform
