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

/// The bytes of one file that grows in a TileMemory. It must not move while the memory lives.
class TileContent {
public:
    TileContent() = default;
    TileContent(const TileContent&) = delete;
    TileContent& operator=(const TileContent&) = delete;
    std::uint64_t Size() const { return spilledSize_ + inMemory_; }

private:
    friend class TileMemory;
    struct Piece {
        std::uint64_t offset, length;
    };
    std::vector<Piece> spilled_;
    std::uint64_t spilledSize_ = 0;
    std::uint64_t inMemory_ = 0;
    std::uint32_t firstBlock_ = 0, lastBlock_ = 0;
    std::size_t room_ = 0;  ///< left in the last block
};

/// Holds many growing files at once, in blocks of memory up to a limit. When the limit is reached, all of
/// them move to a scratch file.
class TileMemory {
public:
    /// The scratch file lies in `folder`. At least 1 MB of memory is used, whatever the limit.
    TileMemory(std::string folder, std::size_t limit);

    /// @throws WriteError when the scratch file cannot take what memory does not
    void Append(TileContent& content, std::string_view bytes);
    template <typename Record>
    void AppendRecord(TileContent& content, const Record& record) {
        Append(content, {reinterpret_cast<const char*>(&record), sizeof record});
    }
    /// Writes the whole content to a file.
    void Copy(const TileContent& content, platform::OutputFile& file);

private:
    static constexpr std::size_t blockBytes = 1020;
    struct Block {
        std::uint32_t next;
        char bytes[blockBytes];
    };
    static constexpr std::size_t blocksPerSlab = 1024;

    Block& At(std::uint32_t index) { return slabs_[index / blocksPerSlab][index % blocksPerSlab]; }
    void AddBlock(TileContent& content);
    void Spill();
    template <typename Take>
    void VisitBlocks(const TileContent& content, Take take);

    std::string folder_;
    std::size_t mostBlocks_;
    std::vector<std::unique_ptr<Block[]>> slabs_;
    std::uint32_t usedBlocks_ = 0;
    std::vector<TileContent*> inMemory_;
    std::optional<platform::ScratchFile> scratch_;
};

}  // namespace vexlator::background
