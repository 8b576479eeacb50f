// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vexlator::platform {

/// A new folder for the files of other programs. The destructor removes it with its contents.
class ScratchFolder {
public:
    /// In the system's temporary folder. @throws WriteError
    ScratchFolder();
    /// Beside a file, on its disk, which may be large. RemoveLeftovers() removes what a killed run left.
    /// @throws WriteError
    explicit ScratchFolder(std::string_view besides);
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    /// Native path.
    const std::string& Path() const { return path_; }

private:
    std::string path_;
    int descriptor_ = -1;  ///< keeps the lock of a folder that RemoveLeftovers() would take
};

}  // namespace vexlator::platform
