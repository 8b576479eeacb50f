// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/TileMemory.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace vexlator::background {

TileMemory::TileMemory(std::string folder, std::size_t limit)
    : folder_(std::move(folder)), mostBlocks_(std::max(limit / sizeof(Block), blocksPerSlab)) {}

void TileMemory::Append(TileContent& content, std::string_view bytes) {
    while (!bytes.empty()) {
        if (content.room_ == 0) AddBlock(content);
        std::size_t piece = std::min(bytes.size(), content.room_);
        std::memcpy(At(content.lastBlock_).bytes + (blockBytes - content.room_), bytes.data(), piece);
        content.room_ -= piece;
        content.inMemory_ += piece;
        bytes.remove_prefix(piece);
    }
}

void TileMemory::AddBlock(TileContent& content) {
    if (usedBlocks_ == mostBlocks_) Spill();
    if (usedBlocks_ == slabs_.size() * blocksPerSlab)
        slabs_.push_back(std::make_unique_for_overwrite<Block[]>(blocksPerSlab));
    std::uint32_t block = usedBlocks_++;
    if (content.inMemory_ == 0) {
        content.firstBlock_ = block;
        inMemory_.push_back(&content);
    } else {
        At(content.lastBlock_).next = block;
    }
    content.lastBlock_ = block;
    content.room_ = blockBytes;
}

template <typename Take>
void TileMemory::VisitBlocks(const TileContent& content, Take take) {
    std::uint32_t block = content.firstBlock_;
    for (std::uint64_t left = content.inMemory_; left > 0; block = At(block).next) {
        std::size_t piece = std::min<std::uint64_t>(left, blockBytes);
        take(std::string_view(At(block).bytes, piece));
        left -= piece;
    }
}

void TileMemory::Spill() {
    if (!scratch_) scratch_.emplace(folder_);
    for (TileContent* content : inMemory_) {
        content->spilled_.push_back({scratch_->Size(), content->inMemory_});
        VisitBlocks(*content, [&](std::string_view bytes) { scratch_->Append(bytes); });
        content->spilledSize_ += std::exchange(content->inMemory_, 0);
        content->room_ = 0;
    }
    inMemory_.clear();
    usedBlocks_ = 0;
}

void TileMemory::Copy(const TileContent& content, platform::OutputFile& file) {
    for (auto [offset, length] : content.spilled_) {
        for (std::uint64_t done = 0; done < length;) {
            std::size_t piece = std::min<std::uint64_t>(length - done, platform::OutputFile::BufferSize);
            scratch_->ReadAt(offset + done, file.Reserve(piece), piece);
            file.Advance(piece);
            done += piece;
        }
    }
    VisitBlocks(content, [&](std::string_view bytes) { file.Write(bytes); });
}

}  // namespace vexlator::background
