// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vexlator::formats {

/// What a line of a MapInfo interchange file begins.
enum class MifKeyword {
    Data,
    Point,
    Ellipse,
    Polyline,
    Region,
    Text,
    Line,
    None,
    Style,  ///< a line about how the object before it looks
    Arc,
    Rectangle,
    RoundedRectangle,
    PointSet,
    Collection,
    Unknown
};

/// The keyword of a line in capitals: the first of "DATA", "POINT", "ELLIPSE", "PLINE", "REGION", "TEXT",
/// "LINE", "NONE" and the style words that stands anywhere in it. The objects from Arc on are known by the
/// word that begins the line; with `extended` it goes before the others, without it a set of points reads as
/// a point.
MifKeyword MifKeywordOf(std::string_view upper, bool extended);

}  // namespace vexlator::formats
