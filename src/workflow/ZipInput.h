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

/// A ZIP archive from anywhere, unpacked only when all of it is found good: every name stays below the target
/// folder and is one of its own on every system, no entry is a link, and the contents are whole and of
/// bounded size.
class ZipInput {
public:
    /// Looks at the names. @throws platform::ReadError, as every member: the archive, the entry, the reason
    explicit ZipInput(std::string_view path);
    ~ZipInput();
    ZipInput(const ZipInput&) = delete;
    ZipInput& operator=(const ZipInput&) = delete;

    /// Reads every entry to its end without keeping anything.
    /// @param mostBytes of all entries together
    void Check(std::uint64_t mostBytes) const;

    /// Writes all entries below `folder`, which is made when it is missing. A file that is there already,
    /// with the same bytes, serves as it is; no other is ever replaced. On an error what was made is removed
    /// again.
    /// @throws platform::WriteError, also when a file of a name is there with other bytes; ReadError when a
    /// link in the folder stands in the way
    platform::MadeFiles UnpackTo(std::string_view folder) const;

private:
    struct Entry {
        std::uint64_t index = 0;
        std::string path;  ///< below the folder, with "/"
        bool isFolder = false;
        std::uint64_t packedSize = 0;
    };
    void ReadEntry(std::uint64_t index);
    void RefuseTwins() const;
    void RefuseLinks(const std::string& folder, const Entry& entry) const;
    /// Whether a file with the content of the entry is there. @throws platform::WriteError one with another
    bool IsThere(const Entry& entry, const std::string& path) const;
    void Unpack(const Entry& entry, const std::string& path, platform::MadeFiles& made) const;
    /// Gives the content piece by piece.
    template <typename Take>
    void ReadContent(const Entry& entry, Take take) const;
    [[noreturn]] void Refuse(std::string_view entry, const std::string& reason) const;

    std::string name_;
    zip* archive_ = nullptr;
    std::vector<Entry> entries_;
};

}  // namespace vexlator::workflow
