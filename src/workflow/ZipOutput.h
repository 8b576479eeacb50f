// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace vexlator::workflow {

/// A ZIP archive that appears whole or not at all. Entries are deflated and keep their files' times; names
/// are UTF-8; files and archives may be larger than 4 GB.
class ZipOutput {
public:
    /// @throws platform::WriteError, like every member
    explicit ZipOutput(std::string_view path);
    ~ZipOutput();
    ZipOutput(const ZipOutput&) = delete;
    ZipOutput& operator=(const ZipOutput&) = delete;

    /// Adds a file to the archive. Commit() reads its contents.
    /// @param entry its path in the archive, with "/"
    /// @throws platform::ReadError a file that cannot be opened
    void Add(const std::string& entry, const std::string& file);
    void Commit();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace vexlator::workflow
