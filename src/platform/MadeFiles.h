// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FileMark.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vexlator::platform {

class OutputFile;

/// Files and folders that a run has made beside those of others, and may remove again.
class MadeFiles {
public:
    /// Puts a file into place under a name that is free. @throws WriteError, also when a file has the name
    void Commit(OutputFile& file);
    /// Makes a folder, and those above it, that are missing. @throws WriteError
    void Folder(std::string_view path);
    /// Removes the files, and the folders that are empty then. What somebody has changed, or put into the
    /// place of a file, stays.
    void Remove();

private:
    std::vector<std::pair<std::string, FileMark>> made_;  ///< native paths, folders before what they hold
};

}  // namespace vexlator::platform
