// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gis/DesignEnd.h"

#include <cstddef>

namespace vexlator::gis {

/// An element begins with two words: its level and type, and the number of words that follow.
bool HasDesignEnd(std::string_view bytes) {
    constexpr std::size_t head = 4, mark = 2, word = 2;
    auto byte = [&](std::size_t place) { return static_cast<unsigned char>(bytes[place]); };
    std::size_t place = 0;
    while (place + mark <= bytes.size()) {
        if (byte(place) == 0xFF && byte(place + 1) == 0xFF) return true;
        if (place + head > bytes.size()) return false;
        place += head + word * (byte(place + 2) + 256U * byte(place + 3));
    }
    return false;
}

}  // namespace vexlator::gis
