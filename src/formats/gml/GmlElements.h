// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace vexlator::formats {

/// What an element of the gml namespace means for the geometry of a feature.
enum class GmlElement : std::uint8_t {
    Other,
    Geometry,     ///< holds other geometry
    Point,        ///< begins a part
    Curve,        ///< begins a part, unless it lies within one
    Segment,      ///< of a curve
    Arc,          ///< a segment that is not straight between its points
    Unsupported,  ///< geometry without points of its course
    Exterior,
    Interior,
    Pos,
    PosList,
    Coordinates,
    Coord,  ///< holds axes
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
/// Whether it stands for the content of a geometry.
constexpr bool IsGeometryContent(GmlElement element) {
    return (element >= GmlElement::Exterior && element <= GmlElement::Coord) ||
           element == GmlElement::Segments || element == GmlElement::Patches;
}

/// By the name without its prefix.
GmlElement GmlElementNamed(std::string_view name);

/// Whether an element of such a name, in any namespace, holds features.
bool HoldsFeatures(std::string_view name);

std::string_view LocalName(std::string_view name);
/// "" when there is none.
std::string_view PrefixOf(std::string_view name);
/// Without the white space of XML at both ends.
std::string_view TrimmedXml(std::string_view text);

}  // namespace vexlator::formats
