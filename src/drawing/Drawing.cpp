// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/Drawing.h"

#include "drawing/Vdf.h"
#include "platform/AsciiCase.h"
#include "platform/Files.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <initializer_list>

namespace vexlator::drawing {

namespace {

constexpr std::array<std::string_view, 7> kindNames = {"VDPOINT", "VDINSERT", "VDPOLYLINE", "VDCIRCLE",
                                                       "VDTEXT",  "VDARC",    "VDLINE"};
constexpr std::uint64_t largestHandle = std::uint64_t{1} << 60;

std::optional<std::uint64_t> HandleNumber(std::string_view text) {
    std::uint64_t number = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, 16);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::uint64_t Bits(double number) {
    return std::bit_cast<std::uint64_t>(number == 0 ? 0 : number);  // 0 and -0 are equal
}

std::size_t HashOf(std::string_view text, std::initializer_list<std::uint64_t> numbers) {
    std::uint64_t hash = std::hash<std::string_view>()(text);
    for (std::uint64_t number : numbers) {
        hash = (hash ^ number) * 0x9E3779B97F4A7C15U;
        hash ^= hash >> 32;
    }
    return hash;
}

}  // namespace

double distance(const Point& a, const Point& b) {
    return util::Distance(a.x, a.y, b.x, b.y);
}

std::string_view KindName(Kind kind) {
    auto index = static_cast<std::size_t>(kind);
    return index < kindNames.size() ? kindNames[index] : "";
}

Kind KindOf(std::string_view name) {
    auto found = std::find(kindNames.begin(), kindNames.end(), name);
    return static_cast<Kind>(found - kindNames.begin());
}

Drawing::Drawing() {
    clear();
}

void Drawing::clear() {
    properties_.clear();
    layers_.clear();
    layersIndexed_ = false;
    layerByName_.clear();
    blocks_.clear();
    blockByName_.clear();
    activeLayer_ = 0;
    active_ = Style{};
    store_ = {};
    names_.Clear();
    styles_.Clear();
    shapes_.Clear();
    addLayer("0");
}

void Drawing::clearEntities() {
    store_.Clear();
    layersIndexed_ = false;
}

void Drawing::clearLayers() {
    layersIndexed_ = false;
    layers_.clear();
    layerByName_.clear();
}

void Drawing::open(std::string_view path) {
    clear();
    try {
        ReadVdf(path, *this);
    } catch (...) {
        clear();
        throw;
    }
}

void Drawing::saveAs(std::string_view path) const {
    platform::OutputFile file(path);
    WriteVdf(*this, file);
    file.Commit();
}

// --- Layers and blocks

Layer* Drawing::findLayer(std::string_view name) {
    auto found = layerByName_.find(platform::LowerAscii(name));
    return found == layerByName_.end() ? nullptr : &layers_[found->second];
}

std::uint32_t Drawing::layerIndex(std::string_view name) {
    auto [place, isNew] =
        layerByName_.try_emplace(platform::LowerAscii(name), static_cast<std::uint32_t>(layers_.size()));
    if (isNew) {
        layers_.push_back(Layer{std::string(name)});
        if (layersIndexed_) {
            onLayer_.emplace_back();
            layerDirty_.push_back(false);
        }
    }
    return place->second;
}

Layer& Drawing::addLayer(std::string_view name) {
    return layers_[layerIndex(name)];
}

void Drawing::eraseLayer(std::string_view name) {
    auto found = layerByName_.find(platform::LowerAscii(name));
    if (found == layerByName_.end() || found->second == 0) return;
    std::uint32_t gone = found->second;
    for (std::uint32_t i = 0; i < store_.Size(); ++i) {
        if (store_[i].layer == gone) {
            eraseEntity(i);
            store_[i].layer = 0;
        } else if (store_[i].layer > gone) {
            --store_[i].layer;
        }
    }
    layers_.erase(layers_.begin() + gone);
    layersIndexed_ = false;
    layerByName_.erase(found);
    for (auto& [key, layer] : layerByName_)
        if (layer > gone) --layer;
    if (activeLayer_ == gone)
        activeLayer_ = 0;
    else if (activeLayer_ > gone)
        --activeLayer_;
}

void Drawing::setActiveLayer(std::string_view name) {
    activeLayer_ = layerIndex(name);
}

const Block* Drawing::findBlock(std::string_view name) const {
    auto found = blockByName_.find(platform::LowerAscii(name));
    return found == blockByName_.end() ? nullptr : &blocks_[found->second];
}

void Drawing::addBlock(Block block) {
    auto [place, isNew] = blockByName_.try_emplace(platform::LowerAscii(block.name), blocks_.size());
    if (isNew)
        blocks_.push_back(std::move(block));
    else
        blocks_[place->second] = std::move(block);
}

// --- Entities

std::optional<Entity> Drawing::findByHandle(std::string_view handle) {
    auto number = HandleNumber(handle);
    auto index = number ? store_.IndexOfHandle(*number) : std::nullopt;
    if (!index || store_[*index].Has(Record::Erased)) return std::nullopt;
    return Entity(*this, *index);
}

bool Drawing::setHandle(Entity entity, std::string_view handle) {
    auto number = HandleNumber(handle);
    return number && *number != 0 && *number < largestHandle && store_.SetHandle(entity.index(), *number);
}

void Drawing::eraseEntity(std::uint32_t entity) {
    store_.Erase(entity);
    if (layersIndexed_) layerDirty_[store_[entity].layer] = true;
}

void Drawing::moveToLayer(std::uint32_t entity, std::string_view name) {
    std::uint32_t layer = layerIndex(name);
    Record& record = store_[entity];
    if (record.layer == layer) return;
    if (layersIndexed_) {
        layerDirty_[record.layer] = true;
        layerDirty_[layer] = true;
        onLayer_[layer].push_back(entity);
    }
    record.layer = layer;
}

void Drawing::indexLayers() {
    if (layersIndexed_) return;
    onLayer_.assign(layers_.size(), {});
    layerDirty_.assign(layers_.size(), false);
    forEach([this](Entity entity) { onLayer_[entity.layerIndex()].push_back(entity.index()); });
    layersIndexed_ = true;
}

SelectionSet Drawing::selectLayer(std::string_view layerName) {
    auto found = layerByName_.find(platform::LowerAscii(layerName));
    if (found == layerByName_.end()) return {*this, {}};
    indexLayers();
    std::uint32_t layer = found->second;
    std::vector<std::uint32_t>& members = onLayer_[layer];
    if (layerDirty_[layer]) {
        std::erase_if(members, [&](std::uint32_t i) {
            return store_[i].layer != layer || store_[i].Has(Record::Erased);
        });
        std::sort(members.begin(), members.end());
        members.erase(std::unique(members.begin(), members.end()), members.end());
        layerDirty_[layer] = false;
    }
    return {*this, members};
}

void Box::widen(const Box& other) {
    minX = std::min(minX, other.minX);
    minY = std::min(minY, other.minY);
    maxX = std::max(maxX, other.maxX);
    maxY = std::max(maxY, other.maxY);
}

std::optional<Box> Drawing::extentsOfAny() const {
    std::optional<Box> box;
    forEach([&](const EntityView& entity) {
        if (entity.vertexCount() == 0) return;
        Box reached = entity.extents();
        if (!box) box = reached;
        box->widen(reached);
    });
    return box;
}

void Drawing::scale(double factor) {
    store_.Scale(factor);
    shapes_.ChangeAll([&](Shape& shape) { shape.size *= factor; });
}

std::size_t Drawing::StyleHash::operator()(const Style& style) const {
    return HashOf(style.lineType, {style.colour, style.fillColour, style.outlineColour,
                                   static_cast<std::uint64_t>(style.lineWeight)});
}

std::size_t Drawing::ShapeHash::operator()(const Shape& shape) const {
    return HashOf(shape.name, {Bits(shape.scaleX), Bits(shape.scaleY), Bits(shape.rotation), Bits(shape.size),
                               Bits(shape.startAngle), Bits(shape.endAngle),
                               static_cast<std::uint64_t>(shape.alignment)});
}

// --- Creation

Entity Drawing::add(Kind kind, const Shape& shape) {
    std::uint32_t index = store_.Add(kind);
    Record& record = store_[index];
    record.layer = activeLayer_;
    record.style = styles_.PlaceOf(active_);
    record.shape = shapes_.PlaceOf(shape);
    if (layersIndexed_) onLayer_[activeLayer_].push_back(index);
    return {*this, index};
}

Entity Drawing::add(Kind kind, const Shape& shape, const Point& at) {
    Entity entity = add(kind, shape);
    entity.appendVertex(at);
    return entity;
}

Entity Drawing::addPoint(const Point& point) {
    return add(Kind::Point, {}, point);
}

Entity Drawing::addInsert(const Point& point, std::string_view blockName, double xScale, double yScale,
                          double rotation) {
    Shape shape;
    shape.name = blockName;
    shape.scaleX = xScale;
    shape.scaleY = yScale;
    shape.rotation = rotation;
    return add(Kind::Insert, shape, point);
}

Entity Drawing::addPolyline(std::span<const Point> points) {
    Entity entity = add(Kind::Polyline, {});
    for (const Point& point : points) entity.appendVertex(point);
    return entity;
}

Entity Drawing::addText(const Point& point, std::string_view text, double height, double rotation) {
    Shape shape;
    shape.size = height;
    shape.rotation = rotation;
    Entity entity = add(Kind::Text, shape, point);
    store_.AppendText(store_.Last(), text);
    return entity;
}

Entity Drawing::addCircle(const Point& centre, double radius) {
    Shape shape;
    shape.size = radius;
    return add(Kind::Circle, shape, centre);
}

Entity Drawing::addArc(const Point& centre, double radius, double startAngle, double endAngle) {
    Shape shape;
    shape.size = radius;
    shape.startAngle = startAngle;
    shape.endAngle = endAngle;
    return add(Kind::Arc, shape, centre);
}

Entity Drawing::addLine(const Point& from, const Point& to) {
    Entity entity = add(Kind::Line, {}, from);
    entity.appendVertex(to);
    return entity;
}

Entity Drawing::addEntity(Kind kind, std::string_view kindName) {
    if (kind == Kind::Text) return addText({}, "", 0, 0);
    Shape shape;
    if (kind == Kind::Other) shape.name = kindName;
    return add(kind, shape);
}

// --- Attribute names

AttributeSet Drawing::attributeSet(std::span<const std::string> names) {
    AttributeNames::Names places;
    for (const std::string& name : names) places.push_back(names_.PlaceOf(name, textTypeCode));
    return names_.SetOf(std::move(places));
}

AttributeSet Drawing::attributeSet(std::span<const AttributeName> names) {
    AttributeNames::Names places;
    for (const AttributeName& name : names) places.push_back(names_.PlaceOf(name.name, name.typeCode));
    return names_.SetOf(std::move(places));
}

std::vector<std::string> Drawing::attributeNames(AttributeSet set) const {
    std::vector<std::string> names;
    for (std::uint32_t name : names_.Of(set)) names.push_back(names_.All()[name].name);
    return names;
}

}  // namespace vexlator::drawing
