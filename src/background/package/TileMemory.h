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

/// One file that grows in a TileMemory. It is small, because tens of thousands of them are accessed in random
/// order.
class TileContent {
public:
    std::uint64_t Size() const { return size_; }

private:
    friend class TileMemory;
    std::uint32_t number_ = 0;  ///< number, counted from 1; 0 before the first bytes
    std::uint32_t size_ = 0;
};

/// Holds many growing files at the same time, in memory up to a limit; beyond it they move to a scratch file.
///
/// Bytes are kept in the order of arrival, for all files together, and are put together by file only at the
/// end. There can be tens of thousands of files, and appending to one does not touch the memory of the
/// others.
class TileMemory {
public:
    /// The scratch file is in `folder`. The memory is at least 1 MB, whatever the limit.
    TileMemory(std::string folder, std::size_t limit);

    /// A file can have up to 4 GB. @throws WriteError if the scratch file cannot be written
    void Append(TileContent& content, std::string_view bytes);
    template <typename Record>
    void AppendRecord(TileContent& content, const Record& record) {
        Append(content, {reinterpret_cast<const char*>(&record), sizeof record});
    }
    /// Writes the whole contents to a file.
    void Copy(const TileContent& content, platform::OutputFile& file);

private:
    static constexpr std::size_t slabBytes = std::size_t{1} << 20;
    /// A range of bytes of one file, within one slab.
    struct Piece {
        std::uint32_t file, length;
        std::uint64_t offset;  ///< offset in all slabs
    };
    /// The part in the scratch file.
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
    std::uint64_t end_ = 0, room_ = 0;  ///< size of the part in memory, up to the end of the slab
    std::vector<Piece> pieces_;
    std::vector<std::vector<Range>> spilled_;  ///< by file number minus 1
    std::vector<std::uint32_t> order_;         ///< numbers of pieces, by file; made by GroupByFile()
    std::vector<std::uint32_t>
        firstOfFile_;  ///< start in order_, by file number; one more than the number of files
    std::optional<platform::ScratchFile> scratch_;
};

}  // namespace vexlator::background
