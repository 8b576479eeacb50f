// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/FileMark.h"

#include <sys/stat.h>

namespace vexlator::platform {

FileMark MarkOf(const std::string& native) {
    struct stat info {};
    if (::lstat(native.c_str(), &info) != 0) return {};
    FileMark mark{static_cast<std::int64_t>(info.st_ino)};
    if (S_ISDIR(info.st_mode)) return mark;
    mark.size = info.st_size;
    mark.seconds = info.st_mtim.tv_sec;
    mark.nanoseconds = info.st_mtim.tv_nsec;
    return mark;
}

}  // namespace vexlator::platform
