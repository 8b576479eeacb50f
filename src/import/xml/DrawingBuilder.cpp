// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/xml/DrawingBuilder.h"

#include "platform/Errors.h"
#include "util/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace vexlator::importer {

using drawing::Kind;
using platform::ReadError;

namespace {

constexpr std::uint64_t largestHandle = std::uint64_t{1} << 60;

drawing::Style StyleOf(XmlAttributeReader& attributes) {
    drawing::Style style;
    style.colour = attributes.Colour("colour");
    style.fillColour = attributes.Colour("fillColour");
    style.outlineColour = attributes.Colour("outlineColour");
    style.lineWeight = attributes.Whole("lineWeight", 0);
    style.lineType = attributes.TextOr("lineType", "");
    return style;
}

std::string HexOf(std::uint64_t number) {
    std::array<char, 16> digits{};
    return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr};
}

/// Takes the next number off a text.
double TakeNumber(std::string_view& text) {
    std::size_t end = std::min(text.find_first_of(util::lineBlanks), text.size());
    double number = XmlNumber(text.substr(0, end));
    text = util::Trim(text.substr(end), util::lineBlanks);
    return number;
}

}  // namespace

void DrawingBuilder::AddProperty(const std::string& name, const std::string& value) {
    auto& properties = drawing_.properties();
    bool isThere =
        std::ranges::any_of(properties, [&](const auto& property) { return property.first == name; });
    if (into_ == Into::Empty || !isThere) properties.emplace_back(name, value);
}

void DrawingBuilder::AddLayer(XmlAttributeReader& attributes) {
    if (into_ == Into::Empty && !std::exchange(hasLayers_, true)) drawing_.clearLayers();
    std::size_t before = drawing_.layerCount();
    drawing::Layer& layer = drawing_.addLayer(attributes.Required("name"));
    bool isNew = drawing_.layerCount() > before;
    if (!isNew && into_ == Into::Empty) throw ReadError("", "", "two layers are called " + layer.name);
    bool frozen = attributes.Flag("frozen");
    drawing::Colour colour = attributes.Colour("colour");
    if (!isNew) return;
    layer.frozen = frozen;
    layer.colour = colour;
}

void DrawingBuilder::SetActive(XmlAttributeReader& attributes) {
    activeLayer_ = attributes.TextOr("layer", "0");
    activeStyle_ = StyleOf(attributes);
}

void DrawingBuilder::BeginEntity(XmlAttributeReader& attributes) {
    kind_ = attributes.Required("kind");
    handle_ = attributes.Handle("handle");
    if (into_ == Into::Filled) handle_ = 0;
    layer_ = attributes.TextOr("layer", "0");
    closed_ = attributes.Flag("closed");
    filled_ = attributes.Flag("filled");
    style_ = StyleOf(attributes);
    ReadShape(attributes);
    text_.clear();
    label_.clear();
    hyperlink_.clear();
    vertices_.clear();
    names_.Start();
    valueCount_ = 0;
}

void DrawingBuilder::ReadShape(XmlAttributeReader& attributes) {
    shape_ = {};
    shape_.name = attributes.TextOr("name", "");
    shape_.scaleX = attributes.Number("scaleX", shape_.scaleX);
    shape_.scaleY = attributes.Number("scaleY", shape_.scaleY);
    shape_.rotation = attributes.Number("rotation", 0);
    shape_.size = attributes.Number("size", 0);
    shape_.startAngle = attributes.Number("startAngle", 0);
    shape_.endAngle = attributes.Number("endAngle", 0);
    shape_.alignment = attributes.Whole("alignment", 0);
    if (drawing::KindOf(kind_) == Kind::Other) shape_.name = kind_;
}

void DrawingBuilder::SetVertices(std::string_view numbers, int dimension) {
    numbers = util::Trim(numbers, util::lineBlanks);
    while (!numbers.empty()) {
        drawing::Point point;
        point.x = TakeNumber(numbers);
        if (numbers.empty()) throw ReadError("", "", "the last vertex is incomplete");
        point.y = TakeNumber(numbers);
        if (dimension == 3) {
            if (numbers.empty()) throw ReadError("", "", "the last vertex is incomplete");
            point.z = TakeNumber(numbers);
        }
        vertices_.push_back(point);
    }
}

void DrawingBuilder::AddValue(std::string_view name, std::int32_t typeCode, std::string_view value) {
    names_.Add(name, typeCode);
    if (valueCount_ == values_.size()) values_.emplace_back();
    values_[valueCount_++] = value;
}

/// Texts come before attribute values, as they stand in the drawing.
void DrawingBuilder::EndEntity() {
    drawing::Entity entity = Create();
    for (const drawing::Point& vertex : std::span(vertices_).subspan(entity.vertexCount()))
        entity.appendVertex(vertex);
    if (entity.shape() != shape_) entity.setShape(shape_);
    if (entity.style() != style_) entity.setStyle(style_);
    entity.setClosed(closed_);
    entity.setFilled(filled_);
    if (!label_.empty()) entity.setLabel(label_);
    if (!hyperlink_.empty()) entity.setHyperlink(hyperlink_);
    if (valueCount_ > 0) {
        names_.BeginValues();
        for (std::size_t i = 0; i < valueCount_; ++i) drawing_.appendValue(values_[i]);
    }
    if (into_ == Into::Empty) handles_.push_back(entity.handleNumber());
}

/// With its handle. Handles mostly rise, and then need no search.
drawing::Entity DrawingBuilder::Create() {
    if (layer_ != drawing_.activeLayerName()) drawing_.setActiveLayer(layer_);
    if (handle_ >= largestHandle) throw ReadError("", "", "the handle is too large");
    bool rises = handle_ >= drawing_.store().NextHandle();
    if (rises) drawing_.store().SetNextHandle(handle_);
    Kind kind = drawing::KindOf(kind_);
    if (kind == Kind::Text && vertices_.empty()) vertices_.push_back({});
    drawing::Entity entity = kind == Kind::Text
                                 ? drawing_.addText(vertices_[0], text_, shape_.size, shape_.rotation)
                                 : drawing_.addEntity(kind, kind_);
    if (handle_ != 0 && !rises && !drawing_.store().SetHandle(entity.index(), handle_))
        throw ReadError("", "", "two entities have the handle " + HexOf(handle_));
    return entity;
}

void DrawingBuilder::Finish() {
    if (!std::ranges::is_sorted(handles_)) std::ranges::sort(handles_);
    if (std::ranges::adjacent_find(handles_) != handles_.end())
        throw ReadError("", "", "two entities have the same handle");
    if (into_ == Into::Filled) return;
    drawing_.setActiveLayer(activeLayer_);
    drawing_.setActiveStyle(activeStyle_);
    if (nextHandle_ < largestHandle && nextHandle_ > drawing_.store().NextHandle())
        drawing_.store().SetNextHandle(nextHandle_);
}

}  // namespace vexlator::importer
