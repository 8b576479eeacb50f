// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vexlator::formats {

/// Numbers texts from 0 in the order of first addition. The texts are not copied and must outlive the index.
/// A large index takes about 40 bytes per text.
class TextIndex {
public:
    static constexpr std::uint32_t none = 0xFFFFFFFF;

    /// The number of a text, which is added if it is new.
    std::uint32_t Add(std::string_view text);
    /// The number, or `none` for a text that was never added.
    std::uint32_t Find(std::string_view text) const;
    std::uint32_t Count() const { return static_cast<std::uint32_t>(texts_.size()); }
    std::string_view Text(std::uint32_t number) const { return texts_[number]; }

private:
    struct Slot {
        std::uint32_t number = none;  ///< `none` in a free slot
        std::uint32_t hash = 0;       ///< distinguishes most texts without reading them
    };

    /// The slot of the text, or the free slot for it.
    std::size_t SlotOf(std::string_view text, std::uint32_t hash) const;
    void Grow();

    std::vector<std::string_view> texts_;
    std::vector<Slot> slots_;  ///< a power of two slots, at least half of them free
};

}  // namespace vexlator::formats
