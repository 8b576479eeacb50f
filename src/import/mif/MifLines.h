// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Angles.h"
#include "util/Files.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace vexlator::importer {

constexpr std::string_view mifBlanks = " \t";
/// Without blanks at both ends.
std::string_view TrimmedLine(std::string_view line);

/// Whether a line holds a vertex: without surrounding blanks it begins with a digit, or a "-" and a digit,
/// and there is a blank in it.
bool IsCoordinateLine(std::string_view line);

/// The numbers in the first fields of a line; 0 where a field is missing or holds none. Runs of blanks
/// separate fields.
std::array<double, 6> MifNumbers(std::string_view line);

/// The lines of a MapInfo interchange file (.MIF), from a buffer.
class MifLines {
public:
    explicit MifLines(std::string_view text) : size_(text.size()), lines_(text) {}

    bool AtEnd() const { return lines_.AtEnd(); }
    std::string_view ReadTextLine() { return lines_.ReadTextLine(); }
    /// The line that the next read returns.
    std::string_view PeekTextLine() const;
    /// Reads coordinate lines until there are no more or `target` is full; returns how many vertices it got.
    std::size_t ReadCoordinates(std::span<util::PlanePoint> target);

    std::size_t Size() const { return size_; }
    /// Bytes from the start of the file to the next line.
    std::size_t Position() const { return lines_.Position(); }
    std::uint64_t Line() const { return lines_.Line(); }

private:
    std::size_t size_;
    util::LineReader lines_;
};

}  // namespace vexlator::importer
