// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

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

    /// Writes all entries below `folder`, which is made when it is missing. Files of the same names are
    /// replaced. On an error the files and folders that were not there before are removed again.
    /// @returns the paths of those that were not there before, folders before what they hold
    /// @throws platform::WriteError; ReadError when a link in the folder stands in the way
    std::vector<std::string> UnpackTo(std::string_view folder) const;

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
    /// Gives the content piece by piece.
    template <typename Take>
    void ReadContent(const Entry& entry, Take take) const;
    [[noreturn]] void Refuse(std::string_view entry, const std::string& reason) const;

    std::string name_;
    zip* archive_ = nullptr;
    std::vector<Entry> entries_;
};

/// Removes what UnpackTo() made: the files, and the folders that are empty then.
void RemoveUnpacked(const std::vector<std::string>& paths);

}  // namespace vexlator::workflow
