// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/Drawing.h"
#include "drawing/TextBlock.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

namespace vexlator::drawing {

using TextChange = EntityStore::TextChange;

// --- Attributes

std::string_view XPropertyView::name() const {
    return drawing_->names().NameAt(drawing_->store()[entity_].set, index_).name;
}

std::int32_t XPropertyView::typeCode() const {
    return drawing_->names().NameAt(drawing_->store()[entity_].set, index_).typeCode;
}

void XProperty::setName(std::string_view name) {
    Record& record = changed_->store()[entity_];
    AttributeNames::Names names = changed_->names().Of(record.set);
    names[index_] = changed_->names().PlaceOf(name, typeCode());
    record.set = changed_->names().SetOf(std::move(names));
}

void XProperty::setValue(std::string_view text) {
    std::string copy(text);
    Record& record = changed_->store()[entity_];
    std::size_t index = record.LeadingTexts() + index_;
    changed_->store().ChangeTexts(record, changed_->textCount(record), TextChange::Replace, index, copy);
    value_ = changed_->store().Text(record, index);
}

std::string_view ValueCursor::Next() {
    --left_;
    return TakeText(position_);
}

std::size_t XPropertiesView::count() const {
    return drawing_->attributeCount(drawing_->store()[entity_].set);
}

XPropertyView XPropertiesView::item(std::size_t index) const {
    const Record& record = drawing_->store()[entity_];
    return {*drawing_, entity_, index, drawing_->store().Text(record, record.LeadingTexts() + index)};
}

std::string_view XPropertiesView::name(std::size_t index) const {
    return drawing_->names().NameAt(drawing_->store()[entity_].set, index).name;
}

std::int32_t XPropertiesView::typeCode(std::size_t index) const {
    return drawing_->names().NameAt(drawing_->store()[entity_].set, index).typeCode;
}

std::optional<XPropertyView> XPropertiesView::find(std::string_view name) const {
    for (std::size_t i = 0, size = count(); i < size; ++i)
        if (this->name(i) == name) return item(i);
    return std::nullopt;
}

ValueCursor XPropertiesView::values() const {
    const Record& record = drawing_->store()[entity_];
    std::size_t values = drawing_->attributeCount(record.set);
    if (values == 0) return {nullptr, 0};
    return {drawing_->store().TextPosition(record, record.LeadingTexts()), values};
}

std::string_view XPropertiesView::encoded() const {
    return drawing_->store().Encoded(drawing_->store()[entity_]);
}

std::optional<XProperty> XProperties::find(std::string_view name) const {
    std::optional<XPropertyView> found = XPropertiesView::find(name);
    if (!found) return std::nullopt;
    return XProperty(*changed_, *found);
}

void XProperties::add(std::string_view name, std::string_view value, std::int32_t typeCode) {
    std::string copy(value);  // it may be in the texts that are about to move
    Record& record = changed_->store()[entity_];
    AttributeNames& names = changed_->names();
    record.set = names.LongerBy(record.set, names.PlaceOf(name, typeCode));
    changed_->store().AppendText(record, copy);
}

// --- Reading entities

const EntityStore& EntityView::store() const {
    return drawing_->store();
}

std::string_view EntityView::kind() const {
    Kind code = kindCode();
    return code == Kind::Other ? std::string_view(shape().name) : KindName(code);
}

std::string EntityView::handle() const {
    std::array<char, 16> digits{};
    char* end = std::to_chars(digits.data(), digits.data() + digits.size(), handleNumber(), 16).ptr;
    std::transform(digits.data(), end, digits.data(),
                   [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
    return {digits.data(), end};
}

const std::string& EntityView::layerName() const {
    return drawing_->layers()[record().layer].name;
}

const Style& EntityView::style() const {
    return drawing_->styles()[record().style];
}

const Shape& EntityView::shape() const {
    return drawing_->shapes()[record().shape];
}

std::string_view EntityView::text() const {
    return kindCode() == Kind::Text ? store().Text(record(), 0) : "";
}

std::string_view EntityView::label() const {
    if (!record().Has(Record::HasLabel)) return "";
    return store().Text(record(), kindCode() == Kind::Text ? 1 : 0);
}

std::string_view EntityView::hyperlink() const {
    if (!record().Has(Record::HasHyperlink)) return "";
    return store().Text(record(), record().LeadingTexts() - 1);
}

Box EntityView::extents() const {
    double reach = kindCode() == Kind::Circle || kindCode() == Kind::Arc ? radius() : 0;
    std::span<const PlanePoint> points = planVertices();
    Box box;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const PlanePoint& p = points[i];
        Box reached{p.x - reach, p.y - reach, p.x + reach, p.y + reach};
        if (i == 0) box = reached;
        box.widen(reached);
    }
    return box;
}

double EntityView::length() const {
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

// --- Changing entities

Record& Entity::changedRecord() {
    return changed_->store()[index_];
}

void Entity::setLayerName(std::string_view name) {
    changed_->moveToLayer(index_, name);
}

void Entity::erase() {
    changed_->eraseEntity(index_);
}

void Entity::setStyle(const Style& style) {
    std::uint32_t place = changed_->styles().PlaceOf(style);
    changedRecord().style = place;
}

void Entity::setShape(const Shape& shape) {
    std::uint32_t place = changed_->shapes().PlaceOf(shape);
    changedRecord().shape = place;
}

void Entity::setVertex(std::size_t index, const Point& point) {
    changed_->store().SetVertex(record(), index, point);
}

void Entity::appendVertex(const Point& point) {
    changed_->store().AppendVertex(changedRecord(), point);
}

void Entity::setText(std::string_view text) {
    if (kindCode() != Kind::Text) return;
    changed_->store().ChangeTexts(changedRecord(), changed_->textCount(record()), TextChange::Replace, 0,
                                  std::string(text));
}

void Entity::setLabel(std::string_view label) {
    setOptionalText(kindCode() == Kind::Text ? 1 : 0, Record::HasLabel, label);
}

void Entity::setHyperlink(std::string_view hyperlink) {
    std::size_t has = record().Has(Record::HasHyperlink) ? 1 : 0;
    setOptionalText(record().LeadingTexts() - has, Record::HasHyperlink, hyperlink);
}

void Entity::setOptionalText(std::size_t index, unsigned flag, std::string_view value) {
    std::string copy(value);
    Record& record = changedRecord();
    bool has = record.Has(flag);
    if (copy.empty() && !has) return;
    TextChange change = !has ? TextChange::Insert : copy.empty() ? TextChange::Remove : TextChange::Replace;
    changed_->store().ChangeTexts(record, changed_->textCount(record), change, index, copy);
    record.Set(flag, !copy.empty());
}

}  // namespace vexlator::drawing
