// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/TileMemory.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace vexlator::background {

namespace {

constexpr std::size_t mostPieces = std::numeric_limits<std::uint32_t>::max();

}  // namespace

TileMemory::TileMemory(std::string folder, std::size_t limit) : folder_(std::move(folder)), limit_(limit) {}

void TileMemory::Append(TileContent& content, std::string_view bytes) {
    if (content.number_ == 0) {
        spilled_.emplace_back();
        content.number_ = static_cast<std::uint32_t>(spilled_.size());
    }
    content.size_ += static_cast<std::uint32_t>(bytes.size());
    while (!bytes.empty()) {
        bool continues = room_ > 0 && !pieces_.empty() && pieces_.back().file == content.number_;
        if (room_ == 0) AddRoom();
        std::size_t length = std::min(bytes.size(), room_);
        std::memcpy(slabs_[end_ / slabBytes].get() + end_ % slabBytes, bytes.data(), length);
        if (continues)
            pieces_.back().length += static_cast<std::uint32_t>(length);
        else
            pieces_.push_back({content.number_, static_cast<std::uint32_t>(length), end_});
        end_ += length;
        room_ -= length;
        bytes.remove_prefix(length);
    }
}

void TileMemory::AddRoom() {
    std::size_t bookkeeping = pieces_.capacity() * (sizeof(Piece) + sizeof(std::uint32_t));
    if (end_ > 0 && (end_ + bookkeeping + slabBytes > limit_ || pieces_.size() + slabBytes > mostPieces))
        Spill();
    if (end_ == slabs_.size() * slabBytes)
        slabs_.push_back(std::make_unique_for_overwrite<char[]>(slabBytes));
    room_ = slabBytes;
}

/// A counting sort: pieces of one file stay in order.
void TileMemory::GroupByFile() {
    firstOfFile_.assign(spilled_.size() + 2, 0);
    for (const Piece& piece : pieces_) ++firstOfFile_[piece.file + 1];
    for (std::size_t i = 1; i < firstOfFile_.size(); ++i) firstOfFile_[i] += firstOfFile_[i - 1];
    order_.resize(pieces_.size());
    std::vector<std::uint32_t> next = firstOfFile_;
    for (std::uint32_t i = 0; i < pieces_.size(); ++i) order_[next[pieces_[i].file]++] = i;
}

template <typename Take>
void TileMemory::VisitPieces(std::uint32_t file, Take take) const {
    for (std::uint32_t i = firstOfFile_[file]; i < firstOfFile_[file + 1]; ++i) {
        const Piece& piece = pieces_[order_[i]];
        take(std::string_view(slabs_[piece.offset / slabBytes].get() + piece.offset % slabBytes,
                              piece.length));
    }
}

void TileMemory::Spill() {
    if (!scratch_) scratch_.emplace(folder_);
    GroupByFile();
    for (std::uint32_t file = 1; file <= spilled_.size(); ++file) {
        std::uint64_t offset = scratch_->Size();
        VisitPieces(file, [&](std::string_view bytes) { scratch_->Append(bytes); });
        if (scratch_->Size() > offset) spilled_[file - 1].push_back({offset, scratch_->Size() - offset});
    }
    pieces_.clear();
    order_.clear();
    end_ = 0;
}

void TileMemory::Copy(const TileContent& content, platform::OutputFile& file) {
    if (firstOfFile_.empty() || order_.size() != pieces_.size()) GroupByFile();
    if (content.number_ == 0) return;
    for (auto [offset, length] : spilled_[content.number_ - 1]) {
        for (std::uint64_t done = 0; done < length;) {
            std::size_t piece = std::min<std::uint64_t>(length - done, platform::OutputFile::BufferSize);
            scratch_->ReadAt(offset + done, file.Reserve(piece), piece);
            file.Advance(piece);
            done += piece;
        }
    }
    VisitPieces(content.number_, [&](std::string_view bytes) { file.Write(bytes); });
}

}  // namespace vexlator::background
