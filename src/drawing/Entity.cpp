// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/Drawing.h"
#include "drawing/TextBlock.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <numbers>

namespace vexlator::drawing {

// --- Texts of an entity: string (of a text entity), label, hyperlink, then the attribute values

std::size_t Drawing::leadingTexts(const Record& record) const {
    unsigned optional = record.flags & (Record::HasLabel | Record::HasHyperlink);
    return (record.kind == Kind::Text ? 1U : 0U) + static_cast<std::size_t>(std::popcount(optional));
}

std::size_t Drawing::textCount(const Record& record) const {
    return leadingTexts(record) + sets_[record.set].names.size();
}

const char* Drawing::textAt(const Record& record, std::size_t index) const {
    const char* position = texts_.data() + record.textBegin;
    for (; index > 0; --index) TakeText(position);
    return position;
}

std::string_view Drawing::readText(const Record& record, std::size_t index) const {
    const char* position = textAt(record, index);
    return TakeText(position);
}

void Drawing::changeTexts(std::uint32_t entity, TextChange change, std::size_t index,
                          std::string_view value) {
    Record& record = entities_[entity];
    std::size_t count = record.textSize == 0 ? 0 : textCount(record);
    PodVector<char> changed;
    const char* position = texts_.data() + record.textBegin;
    for (std::size_t i = 0; i < count || (i == index && change == TextChange::Insert); ++i) {
        if (i == index && change != TextChange::Remove) AppendText(changed, value);
        if (i >= count) break;
        std::string_view text = TakeText(position);
        if (i != index || change == TextChange::Insert) AppendText(changed, text);
    }
    bool inPlace = changed.size() <= record.textSize && !(record.flags & Record::SharesTexts);
    if (!inPlace) {
        record.textBegin = texts_.size();
        record.flags &= static_cast<std::uint8_t>(~Record::SharesTexts);
        texts_.extend(changed.size());
    }
    if (!changed.empty()) std::memcpy(texts_.data() + record.textBegin, changed.data(), changed.size());
    record.textSize = CheckedSize(changed.size());
}

void Drawing::appendText(std::uint32_t entity, std::string_view value) {
    Record& record = entities_[entity];
    if (record.textSize == 0) {
        record.textBegin = texts_.size();
    } else if (record.textBegin + record.textSize != texts_.size()) {
        std::uint64_t begin = texts_.size();
        texts_.extend(record.textSize);
        std::memcpy(texts_.data() + begin, texts_.data() + record.textBegin, record.textSize);
        record.textBegin = begin;
        record.flags &= static_cast<std::uint8_t>(~Record::SharesTexts);
    }
    AppendText(texts_, value);
    record.textSize = CheckedSize(texts_.size() - record.textBegin);
}

void Drawing::setOptionalText(std::uint32_t entity, std::size_t index, std::uint8_t flag,
                              std::string_view value) {
    std::string copy(value);
    Record& record = entities_[entity];
    bool has = (record.flags & flag) != 0;
    if (copy.empty() && !has) return;
    TextChange change = !has ? TextChange::Insert : copy.empty() ? TextChange::Remove : TextChange::Replace;
    changeTexts(entity, change, index, copy);
    if (copy.empty())
        record.flags &= static_cast<std::uint8_t>(~flag);
    else
        record.flags |= flag;
}

void Drawing::moveVerticesToEnd(Record& record) {
    if (record.vertexBegin + record.vertexCount == vertices_.size()) return;
    std::uint64_t begin = vertices_.size();
    vertices_.extend(record.vertexCount);
    std::memcpy(vertices_.data() + begin, vertices_.data() + record.vertexBegin,
                record.vertexCount * sizeof(PlanePoint));
    if (!heights_.empty()) {
        heights_.extend(record.vertexCount);
        std::memcpy(heights_.data() + begin, heights_.data() + record.vertexBegin,
                    record.vertexCount * sizeof(double));
    }
    record.vertexBegin = begin;
}

void Drawing::needHeights() {
    if (!heights_.empty()) return;
    std::size_t count = vertices_.size();
    std::fill_n(heights_.extend(count), count, 0.0);
}

// --- XProperty, XProperties

std::string_view XProperty::name() const {
    return drawing_->attributeName(entity_, index_).name;
}
std::int32_t XProperty::typeCode() const {
    return drawing_->attributeName(entity_, index_).typeCode;
}

void XProperty::setName(std::string_view name) {
    Drawing::Record& record = drawing_->entities_[entity_];
    std::vector<std::uint32_t> names = drawing_->sets_[record.set].names;
    names[index_] = drawing_->nameIndex(name, typeCode());
    record.set = drawing_->setOf(std::move(names));
}

void XProperty::setValue(std::string_view text) {
    std::string copy(text);
    const Drawing::Record& record = drawing_->entities_[entity_];
    std::size_t index = drawing_->leadingTexts(record) + index_;
    drawing_->changeTexts(entity_, Drawing::TextChange::Replace, index, copy);
    value_ = drawing_->readText(record, index);
}

std::string_view ValueCursor::Next() {
    --left_;
    return TakeText(position_);
}

std::size_t XProperties::count() const {
    return drawing_->attributeCount(drawing_->entities_[entity_].set);
}

XProperty XProperties::item(std::size_t index) const {
    const Drawing::Record& record = drawing_->entities_[entity_];
    return {*drawing_, entity_, index, drawing_->readText(record, drawing_->leadingTexts(record) + index)};
}

std::string_view XProperties::name(std::size_t index) const {
    return drawing_->attributeName(entity_, index).name;
}

std::int32_t XProperties::typeCode(std::size_t index) const {
    return drawing_->attributeName(entity_, index).typeCode;
}

std::optional<XProperty> XProperties::find(std::string_view name) const {
    const std::vector<std::uint32_t>& names = drawing_->sets_[drawing_->entities_[entity_].set].names;
    for (std::size_t i = 0; i < names.size(); ++i)
        if (drawing_->names_[names[i]].name == name) return item(i);
    return std::nullopt;
}

void XProperties::add(std::string_view name, std::string_view value, std::int32_t typeCode) {
    std::string copy(value);  // it may lie in the texts that are about to move
    Drawing::Record& record = drawing_->entities_[entity_];
    record.set = drawing_->setLongerBy(record.set, drawing_->nameIndex(name, typeCode));
    drawing_->appendText(entity_, copy);
}

ValueCursor XProperties::values() const {
    const Drawing::Record& record = drawing_->entities_[entity_];
    std::size_t values = drawing_->attributeCount(record.set);
    if (values == 0) return {nullptr, 0};
    return {drawing_->textAt(record, drawing_->leadingTexts(record)), values};
}

std::string_view XProperties::encoded() const {
    const Drawing::Record& record = drawing_->entities_[entity_];
    return {drawing_->texts_.data() + record.textBegin, record.textSize};
}

// --- Entity

namespace {

template <typename Flags>
void SetFlag(Flags& flags, unsigned flag, bool on) {
    flags = static_cast<Flags>(on ? flags | flag : flags & ~flag);
}

}  // namespace

Kind Entity::kindCode() const {
    return drawing_->entities_[index_].kind;
}

std::string_view Entity::kind() const {
    Kind code = kindCode();
    return code == Kind::Other ? std::string_view(shape().name) : KindName(code);
}

std::uint64_t Entity::handleNumber() const {
    return drawing_->entities_[index_].handle;
}

std::string Entity::handle() const {
    std::array<char, 16> digits{};
    char* end = std::to_chars(digits.data(), digits.data() + digits.size(), handleNumber(), 16).ptr;
    std::transform(digits.data(), end, digits.data(),
                   [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
    return {digits.data(), end};
}

const std::string& Entity::layerName() const {
    return drawing_->layers_[drawing_->entities_[index_].layer].name;
}

std::uint32_t Entity::layerIndex() const {
    return drawing_->entities_[index_].layer;
}

void Entity::setLayerName(std::string_view name) {
    std::uint32_t layer = drawing_->layerIndex(name);
    Drawing::Record& record = drawing_->entities_[index_];
    if (record.layer == layer) return;
    if (drawing_->layersIndexed_) {
        drawing_->layerDirty_[record.layer] = true;
        drawing_->layerDirty_[layer] = true;
        drawing_->onLayer_[layer].push_back(index_);
    }
    record.layer = layer;
}

void Entity::erase() {
    Drawing::Record& record = drawing_->entities_[index_];
    if (record.flags & Drawing::Record::Erased) return;
    record.flags |= Drawing::Record::Erased;
    if (drawing_->layersIndexed_) drawing_->layerDirty_[record.layer] = true;
    drawing_->orderStale_ = true;
    ++drawing_->erased_;
}

bool Entity::isErased() const {
    return (drawing_->entities_[index_].flags & Drawing::Record::Erased) != 0;
}

AttributeSet Entity::attributeSet() const {
    return drawing_->entities_[index_].set;
}

const Style& Entity::style() const {
    return drawing_->styles_[drawing_->entities_[index_].style];
}
void Entity::setStyle(const Style& style) {
    drawing_->entities_[index_].style = drawing_->styleIndex(style);
}
const Shape& Entity::shape() const {
    return drawing_->shapes_[drawing_->entities_[index_].shape];
}
void Entity::setShape(const Shape& shape) {
    drawing_->entities_[index_].shape = drawing_->shapeIndex(shape);
}

std::size_t Entity::vertexCount() const {
    return drawing_->entities_[index_].vertexCount;
}

Point Entity::vertex(std::size_t index) const {
    std::uint64_t at = drawing_->entities_[index_].vertexBegin + index;
    const PlanePoint& plan = drawing_->vertices_[at];
    return {plan.x, plan.y, drawing_->heights_.empty() ? 0 : drawing_->heights_[at]};
}

std::span<const PlanePoint> Entity::planVertices() const {
    const Drawing::Record& record = drawing_->entities_[index_];
    return {drawing_->vertices_.data() + record.vertexBegin, record.vertexCount};
}

std::span<const double> Entity::heights() const {
    const Drawing::Record& record = drawing_->entities_[index_];
    if (drawing_->heights_.empty()) return {};
    std::span<const double> all(drawing_->heights_.data() + record.vertexBegin, record.vertexCount);
    bool flat = std::all_of(all.begin(), all.end(), [](double z) { return z == 0; });
    return flat ? std::span<const double>() : all;
}

void Entity::setVertex(std::size_t index, const Point& point) {
    if (point.z != 0) drawing_->needHeights();
    std::uint64_t at = drawing_->entities_[index_].vertexBegin + index;
    drawing_->vertices_[at] = {point.x, point.y};
    if (!drawing_->heights_.empty()) drawing_->heights_[at] = point.z;
}

void Entity::appendVertex(const Point& point) {
    Drawing::Record& record = drawing_->entities_[index_];
    drawing_->moveVerticesToEnd(record);
    if (point.z != 0) drawing_->needHeights();
    bool flat = drawing_->heights_.empty() && point.z == 0;
    drawing_->vertices_.push_back({point.x, point.y});
    if (!flat) drawing_->heights_.push_back(point.z);
    record.vertexCount = CheckedSize(std::uint64_t{record.vertexCount} + 1);
}

bool Entity::isClosed() const {
    return (drawing_->entities_[index_].flags & Drawing::Record::Closed) != 0;
}
void Entity::setClosed(bool closed) {
    SetFlag(drawing_->entities_[index_].flags, Drawing::Record::Closed, closed);
}
bool Entity::isFilled() const {
    return (drawing_->entities_[index_].flags & Drawing::Record::Filled) != 0;
}
void Entity::setFilled(bool filled) {
    SetFlag(drawing_->entities_[index_].flags, Drawing::Record::Filled, filled);
}

std::string_view Entity::text() const {
    return kindCode() == Kind::Text ? drawing_->readText(drawing_->entities_[index_], 0) : "";
}

void Entity::setText(std::string_view text) {
    if (kindCode() != Kind::Text) return;
    drawing_->changeTexts(index_, Drawing::TextChange::Replace, 0, std::string(text));
}

std::string_view Entity::label() const {
    const Drawing::Record& record = drawing_->entities_[index_];
    if (!(record.flags & Drawing::Record::HasLabel)) return "";
    return drawing_->readText(record, record.kind == Kind::Text ? 1 : 0);
}

void Entity::setLabel(std::string_view label) {
    std::size_t index = kindCode() == Kind::Text ? 1 : 0;
    drawing_->setOptionalText(index_, index, Drawing::Record::HasLabel, label);
}

std::string_view Entity::hyperlink() const {
    const Drawing::Record& record = drawing_->entities_[index_];
    if (!(record.flags & Drawing::Record::HasHyperlink)) return "";
    return drawing_->readText(record, drawing_->leadingTexts(record) - 1);
}

void Entity::setHyperlink(std::string_view hyperlink) {
    const Drawing::Record& record = drawing_->entities_[index_];
    bool has = (record.flags & Drawing::Record::HasHyperlink) != 0;
    std::size_t index = drawing_->leadingTexts(record) - (has ? 1 : 0);
    drawing_->setOptionalText(index_, index, Drawing::Record::HasHyperlink, hyperlink);
}

Box Entity::extents() const {
    return drawing_->extentsOf(drawing_->entities_[index_]);
}

double Entity::length() const {
    if (kindCode() == Kind::Circle) return 2 * std::numbers::pi * radius();
    if (kindCode() == Kind::Arc) {
        double sweep = std::fmod(shape().endAngle - shape().startAngle, 2 * std::numbers::pi);
        return radius() * (sweep < 0 ? sweep + 2 * std::numbers::pi : sweep);
    }
    std::span<const PlanePoint> points = planVertices();
    double sum = 0;
    for (std::size_t i = 1; i < points.size(); ++i)
        sum += util::Distance(points[i - 1].x, points[i - 1].y, points[i].x, points[i].y);
    if (isClosed() && points.size() > 1)
        sum += util::Distance(points.back().x, points.back().y, points.front().x, points.front().y);
    return sum;
}

}  // namespace vexlator::drawing
