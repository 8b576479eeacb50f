// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Errors.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::platform {

/// A file of lines that only grows. An added line is on the disk and stays. One object at a time has the
/// file. Tasks started by its owner also keep others away until they end.
class JournalFile {
public:
    /// Opens the file, or creates it. Cuts off an incomplete line of a killed writer.
    /// @throws WriteError, also if another process has the file
    explicit JournalFile(std::string_view path);
    ~JournalFile();
    JournalFile(const JournalFile&) = delete;
    JournalFile& operator=(const JournalFile&) = delete;

    /// Appends lines, each with its line end, and syncs them. @throws WriteError; the file is then unchanged
    void Append(std::string_view lines);
    /// Bytes of the file.
    std::uint64_t Size() const { return size_; }
    /// Native path.
    const std::string& Name() const { return name_; }

private:
    void CutTornLine();
    [[noreturn]] void Fail(const std::string& reason) const;

    std::string name_;
    int descriptor_ = -1;
    std::uint64_t size_ = 0;
};

}  // namespace vexlator::platform
