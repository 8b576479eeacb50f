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

/// Files and folders that a run has made in the folders of others, and may remove again.
class MadeFiles {
public:
    /// Puts a file into place under a free name. @throws WriteError, also if a file has the name
    void Commit(OutputFile& file);
    /// Makes a folder and its missing parents. @throws WriteError
    void Folder(std::string_view path);
    /// Removes the files, and then the empty folders. Files that somebody has changed or replaced stay.
    void Remove();

private:
    std::vector<std::pair<std::string, FileMark>> made_;  ///< native paths, folders before their contents
};

}  // namespace vexlator::platform
