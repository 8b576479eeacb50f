// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vexlator::formats {

/// The object or clause that a line of a MapInfo interchange file begins.
enum class MifKeyword {
    Data,
    Point,
    Ellipse,
    Polyline,
    Region,
    Text,
    Line,
    None,
    Style,  ///< a line about the style of the object before it
    Arc,
    Rectangle,
    RoundedRectangle,
    PointSet,
    Collection,
    Unknown
};

/// The keyword of a line in capital letters: the first of "DATA", "POINT", "ELLIPSE", "PLINE", "REGION",
/// "TEXT", "LINE", "NONE" and the style words that occurs anywhere in it. The objects from Arc on are
/// recognised by the first word of the line. With `extended` this has priority; without it a multipoint reads
/// as a point.
MifKeyword MifKeywordOf(std::string_view upper, bool extended);

}  // namespace vexlator::formats
