// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace vexlator::platform {

/// A new folder for the files of other programs, in the system's temporary folder. The destructor removes it
/// with its contents.
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
