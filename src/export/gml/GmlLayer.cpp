// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/gml/GmlLayer.h"

#include "drawing/AttributeTemplate.h"
#include "export/HeaderNames.h"
#include "formats/xml/XmlName.h"
#include "platform/AsciiCase.h"
#include "util/Counted.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <set>

namespace vexlator::exporter {

using drawing::EntityView;
using drawing::Kind;
using formats::GmlShape;
using util::PlanePoint;

namespace {

/// The attributes that the layer's template says are numbers, in lower case.
std::set<std::string> NumbersOf(config::Run& run, const ExportLayer& layer) {
    std::set<std::string> numbers;
    for (const drawing::AtpField& field : drawing::ReadAtpFields(TemplateFor(run, layer)))
        if (field.type == 'N' || field.type == 'F') numbers.insert(platform::LowerAscii(field.name));
    return numbers;
}

formats::GmlFeatureType TypeOf(config::Run& run, const ExportLayer& layer, std::string element,
                               const std::vector<std::string>& columns) {
    formats::GmlFeatureType type{std::move(element), {}};
    formats::XmlNames names(formats::GmlOwnNames());
    std::set<std::string> numbers = NumbersOf(run, layer);
    for (const std::string& column : columns) {
        bool isText = !numbers.contains(platform::LowerAscii(column));
        type.properties.push_back({names.Take(column), formats::GmlValueType(isText)});
    }
    return type;
}

bool AreFinite(std::span<const PlanePoint> positions, std::span<const double> heights) {
    return std::ranges::all_of(
               positions, [](const PlanePoint& at) { return std::isfinite(at.x) && std::isfinite(at.y); }) &&
           std::ranges::all_of(heights, [](double height) { return std::isfinite(height); });
}

bool IsExportedKind(Kind kind) {
    return kind != Kind::Text && kind != Kind::Other;
}

}  // namespace

GmlLayer::GmlLayer(config::Run& run, const ExportLayer& layer, const drawing::Drawing& drawing,
                   std::string element, formats::GmlWriter& writer)
    : run_(run),
      layer_(layer),
      writer_(writer),
      columns_(HeaderNames(layer, drawing, true)),
      type_(TypeOf(run, layer, std::move(element), columns_)),
      match_(ColumnMatch::ByName(run, layer.layer.name, NamesForAttributes(columns_))) {
    for (const formats::GmlPropertyType& property : type_.properties)
        elements_.emplace_back(property.element);
}

void GmlLayer::Write(const LayerPart& part) {
    for (EntityView entity : part) {
        if (!IsExportedKind(entity.kindCode())) {
            leftOut_.Add(entity.kindCode());
            continue;
        }
        writer_.BeginFeature(type_.element, entity.handle());
        AddValues(entity);
        AddPlace(entity);
        writer_.EndFeature();
        ++features_;
    }
}

std::uint64_t GmlLayer::Finish() {
    leftOut_.Report(run_, layer_.layer.name);
    match_.Report();
    if (unplaced_ > 0)
        run_.Ui().Report(layer_.layer.name + ": " + util::Counted(unplaced_, "feature") +
                         " without a geometry, because it has no position or one that is no number");
    return features_;
}

void GmlLayer::AddValues(EntityView entity) {
    std::span<const std::string_view> row = match_.Row(entity);
    for (std::size_t column = 0; column < row.size(); ++column) {
        if (row[column].empty()) continue;
        type_.properties[column].type.Add(row[column]);
        if (std::uint64_t replaced = writer_.AddValue(elements_[column], row[column]); replaced > 0)
            run_.Losses().Count(config::LossReport::Kind::Replaced, layer_.layer.name, columns_[column],
                                replaced);
    }
}

void GmlLayer::AddPlace(EntityView entity) {
    switch (entity.kindCode()) {
        case Kind::Polyline:
            return AddPolyline(entity);
        case Kind::Circle:
            return AddArc(entity, GmlShape::Circle);
        case Kind::Arc:
            return AddArc(entity, GmlShape::Arc);
        case Kind::Line:
            return AddShape(entity.vertexCount() >= 2 ? GmlShape::Line : GmlShape::Point,
                            entity.planVertices(), entity.heights());
        default: {
            bool placed = entity.vertexCount() > 0;
            return AddShape(GmlShape::Point, entity.planVertices().first(placed ? 1 : 0),
                            entity.heights().first(entity.heights().empty() ? 0 : 1));
        }
    }
}

/// A closed polyline of three or more corners is an area.
void GmlLayer::AddPolyline(EntityView entity) {
    std::span<const PlanePoint> vertices = entity.planVertices();
    std::span<const double> heights = entity.heights();
    bool repeats = vertices.size() > 1 && vertices.front() == vertices.back() &&
                   (heights.empty() || heights.front() == heights.back());
    bool area = entity.isClosed() && vertices.size() >= (repeats ? 4U : 3U);
    if (!area) return AddShape(vertices.size() >= 2 ? GmlShape::Line : GmlShape::Point, vertices, heights);
    if (repeats) return AddShape(GmlShape::Area, vertices, heights);
    ring_.assign(vertices.begin(), vertices.end());
    ring_.push_back(vertices.front());
    ringHeights_.assign(heights.begin(), heights.end());
    if (!heights.empty()) ringHeights_.push_back(heights.front());
    AddShape(GmlShape::Area, ring_, ringHeights_);
}

/// By three positions on it. A circle's are a third of it apart.
void GmlLayer::AddArc(EntityView entity, GmlShape shape) {
    constexpr double turn = 2 * std::numbers::pi;
    if (entity.vertexCount() == 0) return AddShape(shape, {}, {});
    PlanePoint centre = entity.planVertices()[0];
    double begin = 0, step = turn / 3;
    if (shape == GmlShape::Arc) {
        begin = entity.shape().startAngle;
        double sweep = std::fmod(entity.shape().endAngle - begin, turn);
        step = (sweep > 0 ? sweep : sweep + turn) / 2;
    }
    std::array<PlanePoint, 3> positions;
    for (std::size_t i = 0; i < positions.size(); ++i) {
        double angle = begin + step * static_cast<double>(i);
        positions[i] = {centre.x + entity.radius() * std::cos(angle),
                        centre.y + entity.radius() * std::sin(angle)};
    }
    if (std::isfinite(entity.radius()))
        for (double reach : {-entity.radius(), entity.radius()})
            writer_.Cover({centre.x + reach, centre.y + reach});
    std::array<double, 3> heights{};
    if (!entity.heights().empty()) heights.fill(entity.heights()[0]);
    AddShape(shape, positions, std::span(heights).first(entity.heights().empty() ? 0 : heights.size()));
}

void GmlLayer::AddShape(GmlShape shape, std::span<const PlanePoint> positions,
                        std::span<const double> heights) {
    if (positions.empty() || !AreFinite(positions, heights)) {
        ++unplaced_;
        return;
    }
    type_.shapes.insert(shape);
    writer_.AddGeometry(shape, positions, heights);
}

}  // namespace vexlator::exporter
