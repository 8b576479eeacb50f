// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/ScratchFolder.h"

#include "platform/Errors.h"
#include "platform/NativeFiles.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>

namespace vexlator::platform {

ScratchFolder::ScratchFolder() {
    std::error_code error;
    path_ = (std::filesystem::temp_directory_path(error) / "vexlator-XXXXXX").string();
    if (error || !::mkdtemp(path_.data())) throw WriteError(path_, error ? error.message() : Reason(errno));
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

}  // namespace vexlator::platform
