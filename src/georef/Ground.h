// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "georef/Sentence.h"
#include "util/Geometry.h"

#include <optional>
#include <string_view>

namespace vexlator::georef {

enum class GroundKind {
    None,     ///< not understood
    Grid,     ///< easting and northing
    Degrees,  ///< longitude and latitude
};

/// The meaning of a typed ground position.
struct GroundReading {
    GroundKind kind = GroundKind::None;
    util::PlanePoint place;  ///< easting, northing; or longitude, latitude in decimal degrees
    /// Whether the order of latitude and longitude is certain, by letters or by values that can only be one
    /// of the two. If not, the latitude was assumed to come first.
    bool isOrderKnown = false;
    Sentence said;  ///< for the user: the meaning with the order, or why there is none
};

/// A ground position in any usual notation:
/// - easting and northing: two numbers; with letters behind or before them ("300456N 400123E") in either
///   order;
/// - grid letters and digits: two letters of the British National Grid, one of the Irish Grid, then an even
///   number of digits or two groups of equally many; it means the square's south-west corner;
/// - degrees: decimal, degrees and minutes, or degrees, minutes and seconds; marked by signs, the letters d,
///   m,
///   s, colons or blanks; N, S, E, W before or behind, or signs; and the angle texts of util/Geometry.h.
///   Comma, semicolon or blank stands between the two; decimal commas are understood where that leaves no
///   doubt. Two plain numbers are degrees when both can be: below 90 one, up to 180 the other.
GroundReading ReadGround(std::string_view text);

/// "latitude 52.500000 N, longitude 1.250000 W", in that order or the other.
Sentence PlaceInWords(util::PlanePoint degrees, bool latitudeFirst);

/// Two plain numbers with a comma between them and nothing else.
std::optional<util::PlanePoint> ReadNumberPair(std::string_view text);

}  // namespace vexlator::georef
