// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/job/TextIndex.h"

#include <xxhash.h>

namespace vexlator::formats {

namespace {

std::uint32_t HashOf(std::string_view text) {
    return static_cast<std::uint32_t>(XXH3_64bits(text.data(), text.size()));
}

}  // namespace

std::size_t TextIndex::SlotOf(std::string_view text, std::uint32_t hash) const {
    std::size_t mask = slots_.size() - 1;
    std::size_t slot = hash & mask;
    while (slots_[slot].number != none && (slots_[slot].hash != hash || texts_[slots_[slot].number] != text))
        slot = (slot + 1) & mask;
    return slot;
}

void TextIndex::Grow() {
    std::vector<Slot> old(slots_.empty() ? 64 : slots_.size() * 2);
    old.swap(slots_);
    std::size_t mask = slots_.size() - 1;
    for (const Slot& entry : old) {
        if (entry.number == none) continue;
        std::size_t slot = entry.hash & mask;
        while (slots_[slot].number != none) slot = (slot + 1) & mask;
        slots_[slot] = entry;
    }
}

std::uint32_t TextIndex::Add(std::string_view text) {
    if (2 * (texts_.size() + 1) > slots_.size()) Grow();
    std::uint32_t hash = HashOf(text);
    Slot& slot = slots_[SlotOf(text, hash)];
    if (slot.number == none) {
        slot = {Count(), hash};
        texts_.push_back(text);
    }
    return slot.number;
}

std::uint32_t TextIndex::Find(std::string_view text) const {
    return slots_.empty() ? none : slots_[SlotOf(text, HashOf(text))].number;
}

}  // namespace vexlator::formats
