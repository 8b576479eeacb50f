// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::platform {

/// Files that appear together: all are written and synced before the first takes its place, so that a failure
/// while they are written leaves every old file as it was. A failure or a kill while they take their places
/// leaves all old files or all new ones, the latter from the next RemoveLeftovers() on.
class OutputSet {
public:
    OutputSet() = default;
    OutputSet(const OutputSet&) = delete;
    OutputSet& operator=(const OutputSet&) = delete;

    /// A new file of the set; all lie in one folder. The reference stays good. Thousands of files may be
    /// written by turns: those written last have buffers. @throws WriteError
    OutputFile& Add(std::string_view path);
    /// Gives what has been written to the disk, so that its buffers are free while further files are added.
    void FinishSoFar();
    /// Syncs what has been written; a Commit() that follows only renames. The files are synced side by side:
    /// the disk then has to flush its cache once or twice, and not once for each.
    void Finish();
    /// Puts all files into place, in the order in which they were added. @throws WriteError; then every file
    /// is as it was, unless the error names those that could not be brought back
    void Commit();
    /// Puts all files, which lie in that folder, into place in one step, by swapping the folder with a new
    /// one: whoever looks finds all old files or all new ones. Only where the folder holds nothing else but
    /// files of the names `replaced`, which go; false, and nothing has changed, where it holds more, or where
    /// a folder of this kind, or on this file system, cannot be swapped. What others put into the folder
    /// meanwhile is carried over.
    /// @throws WriteError
    bool CommitAsFolder(std::string_view folder, const std::vector<std::string>& replaced);

private:
    friend class OutputFile;
    static constexpr std::size_t mostBuffers = 64;
    /// Further files are open only while they have buffers, and locked by the names that they share with
    /// these: see RemoveLeftovers().
    static constexpr std::size_t mostOpen = 1000;
    static constexpr std::size_t mostSyncs = 16;  ///< that wait for the disk at a time

    /// A buffer for one of the files; the file that took its own first may have to give it.
    std::unique_ptr<char[]> LendBuffer(OutputFile& file);
    void Forget();

    std::deque<OutputFile> files_;
    std::deque<OutputFile*> withBuffer_;
    std::size_t pushed_ = 0;
};

}  // namespace vexlator::platform
