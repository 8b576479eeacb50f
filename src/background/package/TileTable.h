// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/Records.h"
#include "background/package/TileMemory.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace vexlator::background {

/// A growing file of a tile.
struct TileFile {
    std::int32_t number = 0;
    char letter = 0;  ///< 0: none
    Box box = Box::Empty();
    double tileSize = 0;
    TileContent content;  ///< without the file's header
};

/// The tile files of a package by number and letter. Every element needs its own file among tens of
/// thousands, in random order, so fetching it from memory is the main cost. A file is in the table itself,
/// within one cache line, and can be prefetched.
class TileTable {
public:
    /// The tile's file, and whether it is new: a new file has only its name. Valid until the next call.
    std::pair<TileFile&, bool> At(std::int32_t number, char letter) {
        if ((used_ + 1) * 4 > slots_.size() * 3) Grow();
        TileFile& file = Find(number, letter);
        bool isNew = file.letter == 0;
        if (isNew) {
            file.number = number;
            file.letter = letter;
            ++used_;
        }
        return {file, isNew};
    }
    /// Prefetches the file while other work is done.
    void Prefetch(std::int32_t number, char letter) const {
        if (!slots_.empty()) __builtin_prefetch(&slots_[Begin(number, letter)], 1);
    }
    std::size_t Count() const { return used_; }
    /// All files, in no order.
    template <typename Visit>
    void ForEach(Visit visit) const {
        for (const Slot& slot : slots_)
            if (slot.file.letter != 0) visit(slot.file);
    }

private:
    struct alignas(64) Slot {
        TileFile file;
    };
    static_assert(sizeof(Slot) == 64);

    std::size_t Begin(std::int32_t number, char letter) const {
        std::uint64_t key =
            std::uint64_t{static_cast<std::uint32_t>(number)} << 8 | static_cast<unsigned char>(letter);
        return (key * 0x9E3779B97F4A7C15 >> 32) & (slots_.size() - 1);
    }
    /// Its slot, which is free if it is new.
    TileFile& Find(std::int32_t number, char letter) {
        std::size_t i = Begin(number, letter);
        for (; slots_[i].file.letter != 0; i = (i + 1) & (slots_.size() - 1))
            if (slots_[i].file.number == number && slots_[i].file.letter == letter) break;
        return slots_[i].file;
    }
    void Grow() {
        std::vector<Slot> old(slots_.empty() ? 64 : 2 * slots_.size());
        old.swap(slots_);
        for (const Slot& slot : old)
            if (slot.file.letter != 0) Find(slot.file.number, slot.file.letter) = slot.file;
    }

    std::vector<Slot> slots_;  ///< a power of two slots, a quarter of them free
    std::size_t used_ = 0;
};

}  // namespace vexlator::background
