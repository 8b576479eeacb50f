// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/MadeFiles.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct zip;

namespace vexlator::workflow {

/// A ZIP archive, not trusted, and unpacked only if all of it is valid. Every name stays inside the target
/// folder and is unique on every system. No entry is a link. The contents are complete and of bounded size.
class ZipInput {
public:
    /// Checks the names. @throws platform::ReadError, like every member: the archive, the entry, the reason
    explicit ZipInput(std::string_view path);
    ~ZipInput();
    ZipInput(const ZipInput&) = delete;
    ZipInput& operator=(const ZipInput&) = delete;

    /// Reads every entry to its end and discards the contents.
    /// @param mostBytes limit for all entries together
    void Check(std::uint64_t mostBytes) const;

    /// Writes all entries into `folder`, which is created if missing. An existing file with the same bytes
    /// stays; no other file is ever replaced. On an error, new files are removed again.
    /// @throws platform::WriteError, also if a file exists with other bytes; ReadError if a link in the
    /// folder is in the way
    platform::MadeFiles UnpackTo(std::string_view folder) const;

private:
    struct Entry {
        std::uint64_t index = 0;
        std::string path;  ///< relative to the folder, with "/"
        bool isFolder = false;
        std::uint64_t packedSize = 0;
    };
    void ReadEntry(std::uint64_t index);
    void RefuseTwins() const;
    void RefuseLinks(const std::string& folder, const Entry& entry) const;
    /// Whether a file with the entry's contents exists.
    /// @throws platform::WriteError for a file with other contents
    bool IsThere(const Entry& entry, const std::string& path) const;
    void Unpack(const Entry& entry, const std::string& path, platform::MadeFiles& made) const;
    /// Gives the contents piece by piece.
    template <typename Take>
    void ReadContent(const Entry& entry, Take take) const;
    [[noreturn]] void Refuse(std::string_view entry, const std::string& reason) const;

    std::string name_;
    zip* archive_ = nullptr;
    std::vector<Entry> entries_;
};

}  // namespace vexlator::workflow
