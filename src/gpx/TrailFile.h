// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <array>
#include <cstddef>
#include <string_view>

/// GPS trails of the field device (.GXY): a text line for each position of the day, in fields separated by
/// commas: date and time (dd/mm/yyyy hh:mm:ss), easting, northing, height. Further fields are ignored.
namespace vexlator::gpx {

/// A date and time in GPX: yyyy-mm-ddThh:mm:ss. Shorter if the trail's was shorter.
class TrailTime {
public:
    TrailTime() = default;
    /// Copies the characters at the positions of the digits, without a check. Characters other than printable
    /// ASCII become "?".
    explicit TrailTime(std::string_view dateAndTime);
    std::string_view Text() const { return {text_.data(), size_}; }
    /// Whether it is a valid dateTime of XML Schema.
    bool IsValid() const;

private:
    void Append(std::string_view text, std::size_t begin, std::size_t length);
    void Append(char c) { text_[size_++] = c; }

    std::array<char, 19> text_{};
    std::size_t size_ = 0;
};

/// One position. Fields that are missing or not numbers are 0.
struct TrailPosition {
    TrailTime time;
    util::PlanePoint grid;
    double height = 0;
    bool isPlaced = true;  ///< false: the position has none, and `grid` has no meaning
};

TrailPosition ParseTrailLine(std::string_view line);
/// Whether both coordinate fields are entirely numbers. For other fields, ParseTrailLine() reads the number
/// at their start, or 0.
bool HasCoordinates(std::string_view line);

/// The last line of a text, as a line reader would return it.
std::string_view LastLine(std::string_view text);

}  // namespace vexlator::gpx
