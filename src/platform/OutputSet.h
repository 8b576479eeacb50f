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

/// Files that appear together. All are written and synced before the first takes its place, so that a failure
/// during writing leaves every old file unchanged. After a failure or a kill during the renames, either all
/// files are old or all are new; after a kill, the next RemoveLeftovers() completes this.
class OutputSet {
public:
    OutputSet() = default;
    OutputSet(const OutputSet&) = delete;
    OutputSet& operator=(const OutputSet&) = delete;

    /// A new file of the set. All files are in one folder. The reference stays valid. Thousands of files can
    /// be written in turns; the most recently written ones have buffers.
    /// @throws WriteError
    OutputFile& Add(std::string_view path);
    /// Writes the buffers to the disk, so that they are free while further files are added.
    void FinishSoFar();
    /// Syncs the written files; a later Commit() only renames. Files are synced in parallel: the disk then
    /// flushes its cache once or twice instead of once per file.
    void Finish();
    /// Puts all files into place, in the order of addition.
    /// @throws WriteError; then every file is unchanged, except files that the error names because they could
    /// not be restored
    void Commit();
    /// Puts all files into place in one step, by swapping their folder with a new one: readers see all old
    /// files or all new ones. It works only if the folder holds no other files than those named in
    /// `replaced`, which are removed. Returns false, without any change, if the folder holds other files, or
    /// if this kind of folder or file system does not allow a swap. Files that others add meanwhile move to
    /// the new folder.
    /// @throws WriteError
    bool CommitAsFolder(std::string_view folder, const std::vector<std::string>& replaced);

private:
    friend class OutputFile;
    static constexpr std::size_t mostBuffers = 64;
    /// Further files are open only while they have buffers. The name parts that they share with these files
    /// lock them: see RemoveLeftovers().
    static constexpr std::size_t mostOpen = 1000;
    static constexpr std::size_t mostSyncs = 16;  ///< number of files that wait for the disk at a time

    /// A buffer for one of the files. The file with the oldest buffer may have to give it up.
    std::unique_ptr<char[]> LendBuffer(OutputFile& file);
    void Forget();

    std::deque<OutputFile> files_;
    std::deque<OutputFile*> withBuffer_;
    std::size_t pushed_ = 0;
};

}  // namespace vexlator::platform
