// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <array>
#include <cstddef>
#include <string_view>

/// GPS trails of the field device (.GXY): a text line for each position of the day, in fields separated by
/// commas: date and time (dd/mm/yyyy hh:mm:ss), easting, northing, height. Further fields do not count.
namespace vexlator::gpx {

/// A date and time as GPX has it: yyyy-mm-ddThh:mm:ss. Shorter where the trail's was shorter.
class TrailTime {
public:
    TrailTime() = default;
    /// Takes the digits from their places, whatever stands there; what is no printable ASCII becomes "?".
    explicit TrailTime(std::string_view dateAndTime);
    std::string_view Text() const { return {text_.data(), size_}; }
    /// Whether it is a date and time by the rules of XML Schema.
    bool IsValid() const;

private:
    void Append(std::string_view text, std::size_t begin, std::size_t length);
    void Append(char c) { text_[size_++] = c; }

    std::array<char, 19> text_{};
    std::size_t size_ = 0;
};

/// One position. Fields that are missing or no numbers are 0.
struct TrailPosition {
    TrailTime time;
    util::PlanePoint grid;
    double height = 0;
    bool isPlaced = true;  ///< false: the position has none, whatever `grid` holds
};

TrailPosition ParseTrailLine(std::string_view line);
/// Whether both coordinates are numbers as a whole; where they are not, ParseTrailLine() reads what begins
/// like one, or 0.
bool HasCoordinates(std::string_view line);

/// The last line of a text, as a reader of lines would give it.
std::string_view LastLine(std::string_view text);

}  // namespace vexlator::gpx
