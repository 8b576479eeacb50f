// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/Drawing.h"

#include "drawing/TextBlock.h"
#include "drawing/Vdf.h"
#include "platform/Files.h"
#include "platform/Paths.h"

#include <algorithm>
#include <charconv>
#include <cmath>

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

/// The place of a value in a table, entered when it is not among the last few: entities come in runs that
/// look alike, and a few entries too many are cheaper than a search for every entity.
template <typename T>
std::uint32_t IndexAmongLast(std::vector<T>& table, const T& value) {
    std::size_t stop = table.size() > 8 ? table.size() - 8 : 0;
    for (std::size_t i = table.size(); i > stop; --i)
        if (table[i - 1] == value) return static_cast<std::uint32_t>(i - 1);
    table.push_back(value);
    return static_cast<std::uint32_t>(table.size() - 1);
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
    entities_ = {};
    vertices_ = {};
    heights_ = {};
    texts_ = {};
    erased_ = 0;
    orderStale_ = true;
    styles_.clear();
    shapes_.clear();
    names_.clear();
    nameByText_.clear();
    sets_.assign(1, NameSet{});
    setByNames_.clear();
    nextHandle_ = 1;
    byHandle_.clear();
    handlesIndexed_ = false;
    selections_.clear();
    addLayer("0");
}

void Drawing::clearEntities() {
    entities_.truncate(0);
    vertices_.truncate(0);
    heights_.truncate(0);
    texts_.truncate(0);
    erased_ = 0;
    orderStale_ = true;
    layersIndexed_ = false;
    byHandle_.clear();
    handlesIndexed_ = false;
    selections_.clear();
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
    for (std::uint32_t i = 0; i < entities_.size(); ++i) {
        if (entities_[i].layer == gone) {
            Entity(*this, i).erase();
            entities_[i].layer = 0;
        } else if (entities_[i].layer > gone) {
            --entities_[i].layer;
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

Entity Drawing::entityAt(std::size_t index) {
    if (erased_ == 0) return {*this, static_cast<std::uint32_t>(index)};
    if (orderStale_) {
        order_.clear();
        forEach([&](Entity entity) { order_.push_back(entity.index()); });
        orderStale_ = false;
    }
    return {*this, order_[index]};
}

void Drawing::indexHandles() {
    if (handlesIndexed_) return;
    byHandle_.reserve(entities_.size());
    for (std::uint32_t i = 0; i < entities_.size(); ++i) byHandle_.emplace(entities_[i].handle, i);
    handlesIndexed_ = true;
}

std::optional<std::uint32_t> Drawing::indexOfHandle(std::uint64_t handle) {
    if (entities_.empty()) return std::nullopt;
    // Handles are given in order, so most drawings need no index to find them.
    std::uint64_t guess = handle - entities_[0].handle;
    if (guess < entities_.size() && entities_[guess].handle == handle)
        return static_cast<std::uint32_t>(guess);
    if (handle >= nextHandle_) return std::nullopt;
    indexHandles();
    auto found = byHandle_.find(handle);
    if (found == byHandle_.end()) return std::nullopt;
    return found->second;
}

std::optional<Entity> Drawing::findByHandle(std::string_view handle) {
    auto number = HandleNumber(handle);
    auto index = number ? indexOfHandle(*number) : std::nullopt;
    if (!index || (entities_[*index].flags & Record::Erased)) return std::nullopt;
    return Entity(*this, *index);
}

bool Drawing::setHandle(Entity entity, std::string_view handle) {
    auto number = HandleNumber(handle);
    if (!number || *number == 0 || *number >= largestHandle) return false;
    Record& record = entities_[entity.index()];
    if (record.handle == *number) return true;
    if (indexOfHandle(*number)) return false;
    if (handlesIndexed_) {
        byHandle_.erase(record.handle);
        byHandle_.emplace(*number, entity.index());
    }
    // A number that only this entity has ever had can be given again.
    if (record.handle + 1 == nextHandle_) --nextHandle_;
    record.handle = *number;
    nextHandle_ = std::max(nextHandle_, *number + 1);
    return true;
}

void Drawing::indexLayers() {
    if (layersIndexed_) return;
    onLayer_.assign(layers_.size(), {});
    layerDirty_.assign(layers_.size(), false);
    forEach([this](Entity entity) { onLayer_[entities_[entity.index()].layer].push_back(entity.index()); });
    layersIndexed_ = true;
}

SelectionSet& Drawing::selectLayer(std::string_view setName, std::string_view layerName) {
    SelectionSet& set = selections_[std::string(setName)];
    set.drawing_ = this;
    set.entities_.clear();
    auto found = layerByName_.find(platform::LowerAscii(layerName));
    if (found == layerByName_.end()) return set;
    indexLayers();
    std::uint32_t layer = found->second;
    std::vector<std::uint32_t>& members = onLayer_[layer];
    if (layerDirty_[layer]) {
        std::erase_if(members, [&](std::uint32_t i) {
            return entities_[i].layer != layer || (entities_[i].flags & Record::Erased) != 0;
        });
        std::sort(members.begin(), members.end());
        members.erase(std::unique(members.begin(), members.end()), members.end());
        layerDirty_[layer] = false;
    }
    set.entities_ = members;
    return set;
}

void Box::widen(const Box& other) {
    minX = std::min(minX, other.minX);
    minY = std::min(minY, other.minY);
    maxX = std::max(maxX, other.maxX);
    maxY = std::max(maxY, other.maxY);
}

Box Drawing::extentsOf(const Record& record) const {
    double reach = record.kind == Kind::Circle || record.kind == Kind::Arc ? shapes_[record.shape].size : 0;
    Box box;
    for (std::uint32_t v = 0; v < record.vertexCount; ++v) {
        const PlanePoint& p = vertices_[record.vertexBegin + v];
        Box reached{p.x - reach, p.y - reach, p.x + reach, p.y + reach};
        if (v == 0) box = reached;
        box.widen(reached);
    }
    return box;
}

std::optional<Box> Drawing::extentsOfAny() const {
    std::optional<Box> box;
    for (std::size_t i = 0; i < entities_.size(); ++i) {
        const Record& record = entities_[i];
        if (record.flags & Record::Erased || record.vertexCount == 0) continue;
        Box reached = extentsOf(record);
        if (!box) box = reached;
        box->widen(reached);
    }
    return box;
}

Box Drawing::extents() const {
    return extentsOfAny().value_or(Box{});
}

void Drawing::scale(double factor) {
    for (std::size_t i = 0; i < vertices_.size(); ++i) {
        vertices_[i].x *= factor;
        vertices_[i].y *= factor;
    }
    for (std::size_t i = 0; i < heights_.size(); ++i) heights_[i] *= factor;
    for (Shape& shape : shapes_) shape.size *= factor;
}

// --- Creation

std::uint32_t Drawing::styleIndex(const Style& style) {
    return IndexAmongLast(styles_, style);
}

std::uint32_t Drawing::shapeIndex(const Shape& shape) {
    return IndexAmongLast(shapes_, shape);
}

Entity Drawing::add(Kind kind, const Shape& shape) {
    auto index = static_cast<std::uint32_t>(entities_.size());
    Record record{};
    record.handle = nextHandle_++;
    record.textBegin = texts_.size();
    record.vertexBegin = vertices_.size();
    record.layer = activeLayer_;
    record.style = styleIndex(active_);
    record.shape = shapeIndex(shape);
    record.kind = kind;
    entities_.push_back(record);
    if (layersIndexed_) onLayer_[activeLayer_].push_back(index);
    if (handlesIndexed_) byHandle_.emplace(record.handle, index);
    orderStale_ = true;
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
    Record& record = entities_[entity.index()];
    AppendText(texts_, text);
    record.textSize = CheckedSize(texts_.size() - record.textBegin);
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

std::uint32_t Drawing::nameIndex(std::string_view name, std::int32_t typeCode) {
    std::string key = std::to_string(typeCode) + ":" + std::string(name);
    auto [place, isNew] = nameByText_.try_emplace(std::move(key), static_cast<std::uint32_t>(names_.size()));
    if (isNew) names_.push_back({std::string(name), typeCode});
    return place->second;
}

AttributeSet Drawing::setLongerBy(AttributeSet set, std::uint32_t name) {
    auto found = sets_[set].longerBy.find(name);
    if (found != sets_[set].longerBy.end()) return found->second;
    std::vector<std::uint32_t> names = sets_[set].names;
    names.push_back(name);
    AttributeSet longer = setOf(std::move(names));
    sets_[set].longerBy.emplace(name, longer);
    return longer;
}

AttributeSet Drawing::setOf(std::vector<std::uint32_t> names) {
    if (names.empty()) return 0;
    std::string key(reinterpret_cast<const char*>(names.data()), names.size() * sizeof(names[0]));
    auto [place, isNew] = setByNames_.try_emplace(std::move(key), static_cast<AttributeSet>(sets_.size()));
    if (isNew) sets_.push_back({std::move(names), {}});
    return place->second;
}

AttributeSet Drawing::attributeSet(std::span<const std::string> names) {
    std::vector<std::uint32_t> indexes;
    for (const std::string& name : names) indexes.push_back(nameIndex(name, textTypeCode));
    return setOf(std::move(indexes));
}

AttributeSet Drawing::attributeSet(std::span<const AttributeName> names) {
    std::vector<std::uint32_t> indexes;
    for (const AttributeName& name : names) indexes.push_back(nameIndex(name.name, name.typeCode));
    return setOf(std::move(indexes));
}

std::vector<std::string> Drawing::attributeNames(AttributeSet set) const {
    std::vector<std::string> names;
    for (std::uint32_t name : sets_[set].names) names.push_back(names_[name].name);
    return names;
}

// --- For importers

void Drawing::beginValues(AttributeSet set) {
    Record& record = entities_.back();
    if (record.textSize == 0) record.textBegin = texts_.size();
    record.set = set;
}

void Drawing::appendValue(std::string_view value) {
    Record& record = entities_.back();
    AppendText(texts_, value);
    record.textSize = CheckedSize(texts_.size() - record.textBegin);
}

void Drawing::shareValues() {
    Record& record = entities_.back();
    Record& before = entities_[entities_.size() - 2];
    record.set = before.set;
    record.textBegin = before.textBegin;
    record.textSize = before.textSize;
    record.flags |= Record::SharesTexts;
    before.flags |= Record::SharesTexts;
}

std::span<PlanePoint> Drawing::extendPlan(std::size_t count) {
    Record& record = entities_.back();
    record.vertexCount = CheckedSize(record.vertexCount + count);
    if (!heights_.empty()) std::fill_n(heights_.extend(count), count, 0.0);
    return {vertices_.extend(count), count};
}

std::span<PlanePoint> Drawing::planFrom(std::uint32_t first) {
    if (first >= entities_.size()) return {};
    std::uint64_t begin = entities_[first].vertexBegin;
    return {vertices_.data() + begin, vertices_.size() - begin};
}

}  // namespace vexlator::drawing
