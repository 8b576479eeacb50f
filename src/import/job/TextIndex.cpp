// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/job/TextIndex.h"

#include <xxhash.h>

namespace vexlator::importer {

std::size_t TextIndex::SlotOf(std::string_view text) const {
    std::size_t mask = slots_.size() - 1;
    std::size_t slot = XXH3_64bits(text.data(), text.size()) & mask;
    while (slots_[slot] != none && texts_[slots_[slot]] != text) slot = (slot + 1) & mask;
    return slot;
}

void TextIndex::Grow() {
    slots_.assign(slots_.empty() ? 64 : slots_.size() * 2, none);
    for (std::uint32_t number = 0; number < Count(); ++number) slots_[SlotOf(texts_[number])] = number;
}

std::uint32_t TextIndex::Add(std::string_view text) {
    if (2 * (texts_.size() + 1) > slots_.size()) Grow();
    std::uint32_t& number = slots_[SlotOf(text)];
    if (number == none) {
        number = Count();
        texts_.push_back(text);
    }
    return number;
}

std::uint32_t TextIndex::Find(std::string_view text) const {
    return slots_.empty() ? none : slots_[SlotOf(text)];
}

}  // namespace vexlator::importer
