// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::platform {

/// Files that appear together: all are written and synced before the first takes its place, so that a failure
/// while they are written leaves every old file as it was.
class OutputSet {
public:
    /// A new file of the set. The reference stays good. @throws WriteError
    OutputFile& Add(std::string_view path) { return files_.emplace_back(path); }
    /// Syncs what has been written, so that its buffers are free while further files are added.
    void FinishSoFar();
    /// Puts all files into place, one after the other in the order in which they were added. @throws
    /// WriteError
    void Commit();
    /// Puts all files, which lie in that folder, into place in one step, by swapping the folder with a new
    /// one: whoever looks finds all old files or all new ones. Only where the folder holds nothing else but
    /// files of the names `replaced`, which go; false, and nothing has changed, where it holds more, or where
    /// a folder of this kind, or on this file system, cannot be swapped.
    /// @throws WriteError
    bool CommitAsFolder(std::string_view folder, const std::vector<std::string>& replaced);

private:
    std::deque<OutputFile> files_;
    std::size_t finished_ = 0;
};

}  // namespace vexlator::platform
