// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Errors.h"
#include "util/Files.h"
#include "util/Geometry.h"
#include "util/Text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace vexlator::formats {

constexpr std::string_view mifBlanks = " \t";
/// Without blanks at both ends.
constexpr std::string_view TrimmedLine(std::string_view line) {
    return util::Trim(line, mifBlanks);
}

/// Whether a line holds a vertex: after leading blanks it begins with a digit, or a "-" and a digit, and it
/// contains a blank.
bool IsCoordinateLine(std::string_view line);

/// The numbers in the first fields of a line; 0 for a field that is missing or not a number. Runs of blanks
/// separate fields.
std::array<double, 6> MifNumbers(std::string_view line);

/// The lines of a MapInfo interchange file (.MIF), from a buffer that must outlive the object, like the name.
/// @throws platform::ReadError if a line to read is longer than longestLine
class MifLines {
public:
    MifLines(std::string_view text, std::string_view fileName)
        : size_(text.size()), fileName_(fileName), lines_(text) {}

    bool AtEnd() const { return lines_.AtEnd(); }
    std::string_view ReadTextLine();
    /// The line that the next read returns.
    std::string_view PeekTextLine() const;
    /// Reads coordinate lines until there are no more or `target` is full; returns the number of vertices.
    std::size_t ReadCoordinates(std::span<util::PlanePoint> target);

    std::size_t Size() const { return size_; }
    /// Bytes from the start of the file to the next line.
    std::size_t Position() const { return lines_.Position(); }
    std::uint64_t Line() const { return lines_.Line(); }
    /// Place of the last line read.
    platform::ReadError Error(const std::string& reason) const;

private:
    std::size_t size_;
    std::string_view fileName_;
    util::LineReader lines_;
};

}  // namespace vexlator::formats
