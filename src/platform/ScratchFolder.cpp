// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/ScratchFolder.h"

#include "platform/Errors.h"
#include "platform/NativeFiles.h"
#include "platform/Paths.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vexlator::platform {

ScratchFolder::ScratchFolder() {
    std::error_code error;
    path_ = (std::filesystem::temp_directory_path(error) / "vexlator-XXXXXX").string();
    if (error || !::mkdtemp(path_.data())) throw WriteError(path_, error ? error.message() : Reason(errno));
}

ScratchFolder::ScratchFolder(std::string_view besides) : path_(NewTemporaryName(NativePath(besides))) {
    constexpr unsigned onlyOwner = 0700;
    if (::mkdir(path_.c_str(), onlyOwner) != 0) throw WriteError(path_, Reason(errno));
    descriptor_ = ::open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor_ >= 0) ::flock(descriptor_, LOCK_EX);
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
    if (descriptor_ >= 0) ::close(descriptor_);
}

}  // namespace vexlator::platform
