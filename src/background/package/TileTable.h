// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vexlator::background {

/// Finds a tile's file by its number and letter. Every element of a package asks, for any of tens of
/// thousands of tiles: an open table touches one place of memory where a map of nodes touches three.
template <typename File>
class TileTable {
public:
    /// The place of the tile's file, nullptr when it is new; good until the next call.
    File*& At(std::int32_t number, char letter) {
        if (++used_ * 2 > slots_.size()) Grow();
        Slot& slot =
            Find(std::uint64_t{static_cast<std::uint32_t>(number)} << 8 | static_cast<unsigned char>(letter));
        if (slot.file != nullptr) --used_;
        return slot.file;
    }

private:
    struct Slot {
        std::uint64_t key = 0;
        File* file = nullptr;
    };
    Slot& Find(std::uint64_t key) {
        std::size_t mask = slots_.size() - 1;
        std::size_t i = (key * 0x9E3779B97F4A7C15 >> 32) & mask;
        while (slots_[i].file != nullptr && slots_[i].key != key) i = (i + 1) & mask;
        slots_[i].key = key;
        return slots_[i];
    }
    void Grow() {
        std::vector<Slot> old(slots_.empty() ? 64 : 2 * slots_.size());
        old.swap(slots_);
        for (const Slot& slot : old)
            if (slot.file != nullptr) Find(slot.key) = slot;
    }

    std::vector<Slot> slots_;  ///< a power of two of them, half of them empty
    std::size_t used_ = 0;
};

}  // namespace vexlator::background
