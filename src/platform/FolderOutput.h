// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FolderSwap.h"
#include "platform/ScratchFolder.h"

#include <memory>
#include <set>
#include <string>
#include <string_view>

namespace vexlator::platform {

/// A folder whose files a library writes, which appears whole: a copy of the one that is there, or a new one.
/// Without Commit() nothing changes. A killed run leaves a folder with a temporary name, which
/// RemoveLeftovers() removes.
class FolderOutput {
public:
    /// Copies the files of a folder that is there. @throws ReadError, WriteError
    explicit FolderOutput(std::string_view path);
    FolderOutput(const FolderOutput&) = delete;
    FolderOutput& operator=(const FolderOutput&) = delete;

    /// Native path for the library, with the folder's own name. A new folder is not made yet.
    const std::string& Path() const { return path_; }
    bool IsNew() const { return !swap_; }
    /// Syncs the files, and puts the folder into place in one step. @throws WriteError
    void Commit();

private:
    std::string target_, path_;
    std::unique_ptr<FolderSwap> swap_;  ///< null if there was no folder
    ScratchFolder scratch_;             ///< holds a new folder, or a link to the copy
    std::set<std::string> replaced_;    ///< names of the files in the old folder
};

}  // namespace vexlator::platform
