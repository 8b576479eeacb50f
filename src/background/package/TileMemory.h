// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"
#include "platform/ScratchFile.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::background {

/// One file that grows in a TileMemory. Small, because tens of thousands of them are looked at in no order.
class TileContent {
public:
    std::uint64_t Size() const { return size_; }

private:
    friend class TileMemory;
    std::uint32_t number_ = 0;  ///< counted from 1; 0 before the first bytes
    std::uint32_t size_ = 0;
};

/// Holds many growing files at once, in memory up to a limit; beyond it they move to a scratch file.
///
/// Bytes are kept in the order in which they come, whatever file they belong to, and put together by file
/// only when they leave: appending touches no memory of other files, of which there may be tens of thousands.
class TileMemory {
public:
    /// The scratch file lies in `folder`. At least 1 MB of memory is used, whatever the limit.
    TileMemory(std::string folder, std::size_t limit);

    /// A file may reach 4 GB. @throws WriteError when the scratch file cannot take what memory does not
    void Append(TileContent& content, std::string_view bytes);
    template <typename Record>
    void AppendRecord(TileContent& content, const Record& record) {
        Append(content, {reinterpret_cast<const char*>(&record), sizeof record});
    }
    /// Writes the whole content to a file.
    void Copy(const TileContent& content, platform::OutputFile& file);

private:
    static constexpr std::size_t slabBytes = std::size_t{1} << 20;
    /// Bytes of one file, within one slab.
    struct Piece {
        std::uint32_t file, length;
        std::uint64_t offset;  ///< in all slabs
    };
    /// Of the scratch file.
    struct Range {
        std::uint64_t offset, length;
    };

    void AddRoom();
    void Spill();
    void GroupByFile();
    template <typename Take>
    void VisitPieces(std::uint32_t file, Take take) const;

    std::string folder_;
    std::size_t limit_;
    std::vector<std::unique_ptr<char[]>> slabs_;
    std::uint64_t end_ = 0, room_ = 0;  ///< of what is in memory, up to the end of the slab
    std::vector<Piece> pieces_;
    std::vector<std::vector<Range>> spilled_;  ///< by the file's number - 1
    std::vector<std::uint32_t> order_;         ///< numbers of pieces, by file; made by GroupByFile()
    std::vector<std::uint32_t> firstOfFile_;   ///< in order_, by number; one more than there are files
    std::optional<platform::ScratchFile> scratch_;
};

}  // namespace vexlator::background
