// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "vdfjson/AttributeNames.h"
#include "vdfjson/JsonValues.h"
#include "vdfjson/PropertyColumns.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::vdfjson {

/// Reads GeoJSON features (RFC 7946) that come from elsewhere and have no `vdf` member.
///
/// Point becomes a VDPOINT, LineString an open VDPOLYLINE, each ring of a Polygon a closed VDPOLYLINE with
/// the vertices as they stand, the last one, which repeats the first, included. Every part of a Multi*
/// geometry or GeometryCollection becomes an entity of its own, and all of them have the feature's
/// attributes, and empty ones for those that only others of its layer have. A feature without geometry
/// becomes a VDPOLYLINE without vertices, so that its attributes are kept.
class PlainFeatureReader {
public:
    /// `defaultLayer` is for features without a property `layer`.
    PlainFeatureReader(drawing::Drawing& drawing, std::string_view defaultLayer, PropertyColumns& columns)
        : drawing_(drawing), columns_(columns), names_(drawing), defaultLayer_(defaultLayer) {}

    using Object = simdjson::dom::object;

    /// Adds the feature's entities. Returns the first one.
    /// @throws BadValue, after which the drawing may hold a part of the feature
    drawing::Entity Add(std::optional<Object> geometry, std::optional<Object> properties);

private:
    enum class Part { Point, Line, Ring };
    struct GeometryType {
        std::string_view name;
        Part part;
        int depth;  ///< arrays around each part
    };
    static const std::array<GeometryType, 6> geometryTypes;

    void ReadProperties(Object properties);
    /// Puts the values where their names stand among those of the layer, once these are known.
    void ArrangeValues();
    void AddGeometry(Object geometry);
    void AddParts(Part part, int depth, element coordinates);
    void AddPart(Part part, element coordinates);
    void GiveAttributes(drawing::Entity entity);

    drawing::Drawing& drawing_;
    PropertyColumns& columns_;
    AttributeNames names_;
    std::string_view defaultLayer_;
    std::string layer_;
    std::vector<std::string_view> ownNames_;
    std::vector<std::string> ownValues_;
    std::vector<std::string_view> values_;  ///< of names_
    std::vector<drawing::Point> points_;
    std::optional<drawing::Entity> first_;  ///< of the current feature
};

}  // namespace vexlator::vdfjson
