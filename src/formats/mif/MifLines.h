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

/// Whether a line holds a vertex: without surrounding blanks it begins with a digit, or a "-" and a digit,
/// and there is a blank in it.
bool IsCoordinateLine(std::string_view line);

/// The numbers in the first fields of a line; 0 where a field is missing or holds none. Runs of blanks
/// separate fields.
std::array<double, 6> MifNumbers(std::string_view line);

/// The lines of a MapInfo interchange file (.MIF), from a buffer that outlives the object, as does the name.
/// @throws platform::ReadError when a line that is read or looked at is longer than longestLine
class MifLines {
public:
    MifLines(std::string_view text, std::string_view fileName)
        : size_(text.size()), fileName_(fileName), lines_(text) {}

    bool AtEnd() const { return lines_.AtEnd(); }
    std::string_view ReadTextLine();
    /// The line that the next read returns.
    std::string_view PeekTextLine() const;
    /// Reads coordinate lines until there are no more or `target` is full; returns how many vertices it got.
    std::size_t ReadCoordinates(std::span<util::PlanePoint> target);

    std::size_t Size() const { return size_; }
    /// Bytes from the start of the file to the next line.
    std::size_t Position() const { return lines_.Position(); }
    std::uint64_t Line() const { return lines_.Line(); }
    /// At the line read last.
    platform::ReadError Error(const std::string& reason) const;

private:
    std::size_t size_;
    std::string_view fileName_;
    util::LineReader lines_;
};

}  // namespace vexlator::formats
