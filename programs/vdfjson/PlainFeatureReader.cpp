// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "vdfjson/PlainFeatureReader.h"

#include "util/JsonText.h"
#include "vdfjson/Coordinates.h"

#include <algorithm>

namespace vexlator::vdfjson {

using drawing::Entity;

namespace {

/// An attribute's text: texts unchanged, null as "", arrays and objects as their JSON.
std::string ValueText(element value) {
    std::string text;
    switch (value.type()) {
        case simdjson::dom::element_type::STRING:
            text = TextOf(value);
            break;
        case simdjson::dom::element_type::DOUBLE:
            util::AppendNumber(text, NumberOf(value));
            break;
        case simdjson::dom::element_type::NULL_VALUE:
            break;
        default:
            text = simdjson::minify(value);
    }
    return text;
}

}  // namespace

const std::array<PlainFeatureReader::GeometryType, 6> PlainFeatureReader::geometryTypes = {{
    {"Point", Part::Point, 0},
    {"MultiPoint", Part::Point, 1},
    {"LineString", Part::Line, 0},
    {"MultiLineString", Part::Line, 1},
    {"Polygon", Part::Ring, 1},
    {"MultiPolygon", Part::Ring, 2},
}};

Entity PlainFeatureReader::Add(std::optional<Object> geometry, std::optional<Object> properties) {
    first_.reset();
    ownNames_.clear();
    ownValues_.clear();
    layer_ = defaultLayer_;
    if (properties) ReadProperties(*properties);
    if (layer_ != drawing_.activeLayerName()) drawing_.setActiveLayer(layer_);
    ArrangeValues();
    if (geometry) AddGeometry(*geometry);
    if (!first_) GiveAttributes(drawing_.addPolyline());
    return *first_;
}

void PlainFeatureReader::ReadProperties(Object properties) {
    for (auto [name, value] : properties) {
        ownNames_.push_back(name);
        ownValues_.push_back(ValueText(value));
        if (name == "layer" && !ownValues_.back().empty()) layer_ = ownValues_.back();
    }
}

void PlainFeatureReader::ArrangeValues() {
    PropertyColumns::Layer& layer = columns_.Of(drawing_.activeLayerName());
    const std::vector<std::size_t>& places = layer.PlacesOf(ownNames_);
    names_.Start();
    if (!columns_.AreSettled()) {
        for (std::string_view name : ownNames_) names_.Add(name);
        values_.assign(ownValues_.begin(), ownValues_.end());
        return;
    }
    for (const std::string& name : layer.Names()) names_.Add(name);
    values_.assign(layer.Names().size(), "");
    for (std::size_t i = 0; i < places.size(); ++i) values_[places[i]] = ownValues_[i];
}

void PlainFeatureReader::AddGeometry(Object geometry) {
    enum GeometryMember : std::size_t { Type, Coordinates, Geometries };
    static constexpr std::array<std::string_view, 3> names = {"type", "coordinates", "geometries"};
    Members members(geometry, names, "geometry.");
    std::string_view type = members.Text(Type);
    if (type == "GeometryCollection") {
        for (element part : members.Get(Geometries, ArrayOf))
            AddGeometry(members.Get(Geometries, [&](element) { return ObjectOf(part); }));
        return;
    }
    auto found = std::find_if(geometryTypes.begin(), geometryTypes.end(),
                              [&](const GeometryType& entry) { return entry.name == type; });
    if (found == geometryTypes.end())
        throw BadValue("geometry.type: \"" + std::string(type) + "\" is not a type of geometry");
    members.Get(Coordinates, [&](element value) { AddParts(found->part, found->depth, value); });
}

void PlainFeatureReader::AddParts(Part part, int depth, element coordinates) {
    if (depth == 0) return AddPart(part, coordinates);
    for (element inner : ArrayOf(coordinates)) AddParts(part, depth - 1, inner);
}

void PlainFeatureReader::AddPart(Part part, element coordinates) {
    if (part == Part::Point) {
        bool isEmpty = ArrayOf(coordinates).size() == 0;
        if (!isEmpty) GiveAttributes(drawing_.addPoint(PointOf(coordinates)));
        return;
    }
    ReadPoints(coordinates, points_);
    Entity entity = drawing_.addPolyline(points_);
    entity.setClosed(part == Part::Ring);
    GiveAttributes(entity);
}

/// The texts of a feature are stored once for all its parts.
void PlainFeatureReader::GiveAttributes(Entity entity) {
    if (first_) {
        drawing_.shareValues();
        return;
    }
    first_ = entity;
    names_.BeginValues();
    for (std::string_view value : values_) drawing_.appendValue(value);
}

}  // namespace vexlator::vdfjson
