// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/Records.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vexlator::background {

/// The gazetteer (.GAZ): search values, each with the square around the features with this value.
class Gazetteer {
public:
    /// Adds a feature with that value. Its square has the centre of its box, rounded down to whole units, and
    /// the longer side of the box, rounded down too. Squares of one value are merged into the square around
    /// both.
    void Add(std::string_view value, const Box& box);
    /// The lines of the file, sorted by value: value, centre and size as whole units.
    std::string Text() const;
    bool IsEmpty() const { return squares_.empty(); }
    /// Characters outside Windows-1252, written as "?".
    std::uint64_t Replaced() const { return replaced_; }

private:
    struct Square {
        double x, y, size;
        Box Bounds() const { return {x - size / 2, y - size / 2, x + size / 2, y + size / 2}; }
    };
    /// By value in the file's spelling, in UTF-8.
    std::unordered_map<std::string, Square> squares_;
    std::uint64_t replaced_ = 0;
};

}  // namespace vexlator::background
