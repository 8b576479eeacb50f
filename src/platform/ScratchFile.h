// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace vexlator::platform {

/// Disk space for data that does not fit in memory. The file has no name: it disappears with the object, and
/// with a killed program.
class ScratchFile {
public:
    /// @throws WriteError
    explicit ScratchFile(std::string_view folder);
    ~ScratchFile();
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    /// @throws WriteError
    void Append(std::string_view bytes);
    /// Bytes appended so far, which is the offset of the next ones.
    std::uint64_t Size() const { return flushed_ + used_; }
    /// Reads appended bytes. @throws WriteError if the disk does not return them
    void ReadAt(std::uint64_t offset, char* target, std::size_t size);

private:
    void Flush();

    std::string folder_;
    int descriptor_ = -1;
    std::unique_ptr<char[]> buffer_;
    std::size_t used_ = 0;
    std::uint64_t flushed_ = 0;
};

}  // namespace vexlator::platform
