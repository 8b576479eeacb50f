// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vexlator::importer {

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
/// "LINE", "NONE" and the style words that stands anywhere in it. `extended` knows the objects from Arc on
/// too, whose words must begin the line; else a set of points reads as a point, and the others are Unknown.
MifKeyword MifKeywordOf(std::string_view upper, bool extended);

}  // namespace vexlator::importer
