// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/FileStamp.h"

#include <sys/stat.h>

namespace vexlator::platform {

std::optional<FileStamp> StampOf(const std::string& native) {
    struct stat status {};
    if (::stat(native.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    auto sinceEpoch =
        std::chrono::seconds(status.st_mtim.tv_sec) + std::chrono::nanoseconds(status.st_mtim.tv_nsec);
    return FileStamp{static_cast<std::uint64_t>(status.st_size), SystemTime(sinceEpoch)};
}

}  // namespace vexlator::platform
