// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace vexlator::platform {

/// A new folder for the files of other programs, where the system keeps what is temporary. It goes, with all
/// that it holds, when the object does.
class ScratchFolder {
public:
    /// @throws WriteError
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    /// Native path.
    const std::string& Path() const { return path_; }

private:
    std::string path_;
};

}  // namespace vexlator::platform
