// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AsciiCase.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <unordered_map>

/// Hash tables of texts. The case of ASCII letters is ignored. A look-up does not copy the text.
namespace vexlator::util {

/// Texts that platform::SameNoCase finds equal have the same hash.
struct NoCaseHash {
    std::size_t operator()(std::string_view text) const {
        // Hashes eight bytes at a time. Setting the case bit makes some other characters equal as well. That
        // costs only a comparison.
        constexpr std::uint64_t caseBits = 0x2020202020202020, factor = 0x9E3779B97F4A7C15;
        std::uint64_t hash = text.size(), word = 0;
        for (; text.size() > sizeof word; text.remove_prefix(sizeof word)) {
            std::memcpy(&word, text.data(), sizeof word);
            hash = Mixed((hash ^ (word | caseBits)) * factor);
        }
        word = 0;
        if (!text.empty()) std::memcpy(&word, text.data(), text.size());
        return Mixed((hash ^ (word | caseBits)) * factor);
    }

private:
    static std::uint64_t Mixed(std::uint64_t hash) { return hash ^ (hash >> 29); }
};

struct NoCaseEqual {
    bool operator()(std::string_view a, std::string_view b) const { return platform::SameNoCase(a, b); }
};

/// The owner of the map keeps the bytes of its keys.
template <typename Value>
using NoCaseMap = std::unordered_map<std::string_view, Value, NoCaseHash, NoCaseEqual>;

}  // namespace vexlator::util
