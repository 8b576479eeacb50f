// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"

#include <cstddef>
#include <deque>
#include <string_view>

namespace vexlator::platform {

/// Files that appear together: all are written and synced before the first takes its place, so that a failure
/// while they are written leaves every old file as it was.
class OutputSet {
public:
    /// A new file of the set. The reference stays good. @throws WriteError
    OutputFile& Add(std::string_view path) { return files_.emplace_back(path); }
    /// Syncs what has been written, so that its buffers are free while further files are added.
    void FinishSoFar();
    /// Puts all files into place. @throws WriteError
    void Commit();

private:
    std::deque<OutputFile> files_;
    std::size_t finished_ = 0;
};

}  // namespace vexlator::platform
