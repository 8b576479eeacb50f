// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Errors.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::platform {

/// A file of lines that only grows. A line that was added is on the disk and stays, whatever happens then.
/// One object at a time has the file; tasks that it starts keep it from others, too, until they end.
class JournalFile {
public:
    /// Opens the file, or makes it. What a killed writer left of a line is cut off.
    /// @throws WriteError, also when somebody else has the file
    explicit JournalFile(std::string_view path);
    ~JournalFile();
    JournalFile(const JournalFile&) = delete;
    JournalFile& operator=(const JournalFile&) = delete;

    /// Adds lines, each with its end, and syncs them. @throws WriteError; the file is then as it was before
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
