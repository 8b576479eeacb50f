// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/PodVector.h"

#include <cstdint>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string_view>

/// The layout of texts in memory and in drawing files: the length as an unsigned LEB128 number, then the
/// bytes. Most lengths take one byte, and an entity's values are read in one forward pass.
namespace vexlator::drawing {

constexpr std::size_t longestLength = 5;  ///< bytes of the largest 32-bit length

inline std::uint32_t CheckedSize(std::uint64_t size) {
    if (size > std::numeric_limits<std::uint32_t>::max())
        throw std::length_error("an entity holds more than 4 GB of texts or vertices");
    return static_cast<std::uint32_t>(size);
}

inline void AppendText(PodVector<char>& target, std::string_view text) {
    std::uint32_t length = CheckedSize(text.size());
    target.reserveMore(longestLength + length);
    char* out = target.data() + target.size();
    char* begin = out;
    for (; length >= 0x80; length >>= 7) *out++ = static_cast<char>(length | 0x80);
    *out++ = static_cast<char>(length);
    if (!text.empty()) std::memcpy(out, text.data(), text.size());
    target.extend(static_cast<std::size_t>(out - begin) + text.size());
}

/// The text at `position`, which moves past it. For texts that this program wrote or has checked.
inline std::string_view TakeText(const char*& position) {
    std::uint32_t length = static_cast<unsigned char>(*position++);
    if (length >= 0x80) {
        length &= 0x7F;
        for (unsigned shift = 7;; shift += 7) {
            std::uint32_t byte = static_cast<unsigned char>(*position++);
            length |= (byte & 0x7F) << shift;
            if (byte < 0x80) break;
        }
    }
    std::string_view text(position, length);
    position += length;
    return text;
}

/// Skips `count` texts that may be damaged; false if they do not end before `end`.
inline bool SkipTexts(const char*& position, const char* end, std::size_t count) {
    for (; count > 0; --count) {
        std::uint64_t length = 0;
        for (unsigned shift = 0;; shift += 7) {
            if (position == end || shift > 28) return false;
            std::uint64_t byte = static_cast<unsigned char>(*position++);
            length |= (byte & 0x7F) << shift;
            if (byte < 0x80) break;
        }
        if (length > static_cast<std::uint64_t>(end - position)) return false;
        position += length;
    }
    return true;
}

}  // namespace vexlator::drawing
