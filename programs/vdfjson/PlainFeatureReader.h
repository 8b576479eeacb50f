// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "drawing/EntityNames.h"
#include "vdfjson/JsonValues.h"
#include "vdfjson/PropertyColumns.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::vdfjson {

/// Reads GeoJSON features (RFC 7946) of other programs, without a `vdf` member.
///
/// Point becomes a VDPOINT, LineString an open VDPOLYLINE. Each ring of a Polygon becomes a closed VDPOLYLINE
/// with all its vertices, including the last one, which repeats the first. Every part of a Multi* geometry or
/// GeometryCollection becomes a separate entity. All of them have the feature's attributes, and empty ones
/// for attributes that only other features of the layer have. A feature without geometry becomes a VDPOLYLINE
/// without vertices, so that its attributes are kept.
class PlainFeatureReader {
public:
    /// `defaultLayer` is for features without a property `layer`.
    PlainFeatureReader(drawing::Drawing& drawing, std::string_view defaultLayer, PropertyColumns& columns)
        : drawing_(drawing), columns_(columns), names_(drawing), defaultLayer_(defaultLayer) {}

    using Object = simdjson::dom::object;

    /// Adds the feature's entities. Returns the first one.
    /// @throws BadValue, after which the drawing may contain a part of the feature
    drawing::Entity Add(std::optional<Object> geometry, std::optional<Object> properties);

private:
    enum class Part { Point, Line, Ring };
    struct GeometryType {
        std::string_view name;
        Part part;
        int depth;  ///< depth of arrays around each part
    };
    static const std::array<GeometryType, 6> geometryTypes;

    void ReadProperties(Object properties);
    /// Puts the values at the positions of their names in the layer's names, once these are known.
    void ArrangeValues();
    void AddGeometry(Object geometry);
    void AddParts(Part part, int depth, element coordinates);
    void AddPart(Part part, element coordinates);
    void GiveAttributes(drawing::Entity entity);

    drawing::Drawing& drawing_;
    PropertyColumns& columns_;
    drawing::EntityNames names_;
    std::string_view defaultLayer_;
    std::string layer_;
    std::vector<std::string_view> ownNames_;
    std::vector<std::string> ownValues_;
    std::vector<std::string_view> values_;  ///< positions of names_
    std::vector<drawing::Point> points_;
    std::optional<drawing::Entity> first_;  ///< values of the current feature
};

}  // namespace vexlator::vdfjson
