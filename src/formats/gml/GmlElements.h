// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace vexlator::formats {

/// The meaning of a gml element for the geometry of a feature.
enum class GmlElement : std::uint8_t {
    Other,
    Geometry,     ///< contains other geometry
    Point,        ///< begins a part
    Curve,        ///< begins a part, unless it is inside one
    Segment,      ///< part of a curve
    Arc,          ///< a segment that is not straight between its points
    Unsupported,  ///< geometry without the points of its curve
    Exterior,
    Interior,
    Pos,
    PosList,
    Coordinates,
    Coord,  ///< contains axes
    Axis,   ///< one value
    Segments,
    Patches,
    BoundedBy,
    Envelope
};

/// Whether an element is a geometry, or a part of one that has coordinates.
constexpr bool BeginsGeometry(GmlElement element) {
    return element >= GmlElement::Geometry && element <= GmlElement::Unsupported;
}
/// Whether it is the content of a geometry.
constexpr bool IsGeometryContent(GmlElement element) {
    return (element >= GmlElement::Exterior && element <= GmlElement::Coord) ||
           element == GmlElement::Segments || element == GmlElement::Patches;
}

/// By the name without its prefix.
GmlElement GmlElementNamed(std::string_view name);

/// Whether an element with such a name, in any namespace, contains features.
bool HoldsFeatures(std::string_view name);

std::string_view LocalName(std::string_view name);
/// "" when there is none.
std::string_view PrefixOf(std::string_view name);
/// Without XML white space at both ends.
std::string_view TrimmedXml(std::string_view text);

}  // namespace vexlator::formats
