// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/gml/GmlElements.h"

#include <unordered_map>

namespace vexlator::formats {

GmlElement GmlElementNamed(std::string_view name) {
    using enum GmlElement;
    static const std::unordered_map<std::string_view, GmlElement> elements = {
        {"Point", Point},
        {"LineString", Curve},
        {"LinearRing", Curve},
        {"Ring", Curve},
        {"Curve", Curve},
        {"CompositeCurve", Curve},
        {"OrientableCurve", Curve},
        {"LineStringSegment", Segment},
        {"Geodesic", Segment},
        {"GeodesicString", Segment},
        {"Arc", Arc},
        {"ArcString", Arc},
        {"ArcByBulge", Arc},
        {"ArcStringByBulge", Arc},
        {"Circle", Arc},
        {"Bezier", Arc},
        {"BSpline", Arc},
        {"CubicSpline", Arc},
        {"Clothoid", Unsupported},
        {"OffsetCurve", Unsupported},
        {"ArcByCenterPoint", Unsupported},
        {"CircleByCenterPoint", Unsupported},
        {"Polygon", Geometry},
        {"PolygonPatch", Geometry},
        {"Triangle", Geometry},
        {"Rectangle", Geometry},
        {"Surface", Geometry},
        {"PolyhedralSurface", Geometry},
        {"TriangulatedSurface", Geometry},
        {"Tin", Geometry},
        {"OrientableSurface", Geometry},
        {"CompositeSurface", Geometry},
        {"MultiPoint", Geometry},
        {"MultiCurve", Geometry},
        {"MultiLineString", Geometry},
        {"MultiSurface", Geometry},
        {"MultiPolygon", Geometry},
        {"MultiGeometry", Geometry},
        {"MultiSolid", Geometry},
        {"GeometricComplex", Geometry},
        {"Solid", Geometry},
        {"CompositeSolid", Geometry},
        {"Shell", Geometry},
        {"exterior", Exterior},
        {"outerBoundaryIs", Exterior},
        {"interior", Interior},
        {"innerBoundaryIs", Interior},
        {"pos", Pos},
        {"posList", PosList},
        {"coordinates", Coordinates},
        {"coord", Coord},
        {"X", Axis},
        {"Y", Axis},
        {"Z", Axis},
        {"segments", Segments},
        {"patches", Patches},
        {"polygonPatches", Patches},
        {"trianglePatches", Patches},
        {"boundedBy", BoundedBy},
        {"Envelope", Envelope},
        {"EnvelopeWithTimePeriod", Envelope},
        {"Box", Envelope},
    };
    auto found = elements.find(name);
    return found == elements.end() ? Other : found->second;
}

bool HoldsFeatures(std::string_view name) {
    return name == "member" || name.ends_with("Member") || name.ends_with("Members");
}

std::string_view LocalName(std::string_view name) {
    return name.substr(name.find(':') + 1);
}

std::string_view PrefixOf(std::string_view name) {
    std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? std::string_view() : name.substr(0, colon);
}

}  // namespace vexlator::formats
