// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vexlator::formats {

/// Numbers texts from 0 in the order in which they were first added. The texts are not copied: they must
/// outlive the index. Hundreds of thousands of texts take about 40 bytes each.
class TextIndex {
public:
    static constexpr std::uint32_t none = 0xFFFFFFFF;

    /// The number of a text, which is entered when it is new.
    std::uint32_t Add(std::string_view text);
    /// `none` for a text that was never added.
    std::uint32_t Find(std::string_view text) const;
    std::uint32_t Count() const { return static_cast<std::uint32_t>(texts_.size()); }
    std::string_view Text(std::uint32_t number) const { return texts_[number]; }

private:
    struct Slot {
        std::uint32_t number = none;  ///< `none` in a free slot
        std::uint32_t hash = 0;       ///< tells most texts apart without reading them
    };

    /// Where the text stands, or would have to stand.
    std::size_t SlotOf(std::string_view text, std::uint32_t hash) const;
    void Grow();

    std::vector<std::string_view> texts_;
    std::vector<Slot> slots_;  ///< a power of two of them, at least half of them free
};

}  // namespace vexlator::formats
