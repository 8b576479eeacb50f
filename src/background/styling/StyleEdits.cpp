// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/styling/StyleEdits.h"

#include "platform/AsciiCase.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace vexlator::background {

namespace {

constexpr std::string StyleRow::*cells[styleColumns] = {&StyleRow::layer, &StyleRow::points, &StyleRow::lines,
                                                        &StyleRow::areas, &StyleRow::thick,  &StyleRow::zoom,
                                                        &StyleRow::hide};

std::optional<double> FiniteNumber(std::string_view text) {
    text = util::Trim(text);
    double number = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    bool isNumber = error == std::errc() && end == text.data() + text.size() && std::isfinite(number);
    return isNumber ? std::optional(number) : std::nullopt;
}

}  // namespace

std::string& CellOf(StyleRow& row, StyleColumn column) {
    return row.*cells[static_cast<std::size_t>(column)];
}

const std::string& CellOf(const StyleRow& row, StyleColumn column) {
    return row.*cells[static_cast<std::size_t>(column)];
}

std::string_view FlagText(bool isOn) {
    return isOn ? "-1" : "0";
}

std::string_view MobileTypeOf(StyleColumn column) {
    if (column == StyleColumn::Points) return "P";
    return column == StyleColumn::Lines ? "S" : "A";
}

void ApplyChanges(std::span<const DrawingChange> changes, drawing::Drawing& drawing) {
    for (const DrawingChange& change : changes) switch (change.kind) {
            case DrawingChange::Kind::Relayer:
                RelayerByAttribute(change.field, drawing);
                break;
            case DrawingChange::Kind::ScaleFeetToMetres:
                ScaleFeetToMetres(drawing);
                break;
            case DrawingChange::Kind::Move:
                MoveDrawing(drawing, change.from, change.to);
        }
}

std::optional<std::size_t> RowOfLayer(std::span<const StyleRow> rows, std::string_view layer) {
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (platform::SameNoCase(rows[i].layer, layer)) return i;
    return std::nullopt;
}

void ResetStyle(BackgroundStyle& style, std::span<const std::string> layers) {
    style.annotationFields.clear();
    style.optimisedAttributes.clear();
    style.searchOnField.clear();
    style.rows = {DefaultRow()};
    AddMissingLayers(style.rows, layers);
}

std::vector<ListedName> WithNames(std::vector<ListedName> list, std::span<const std::string> names) {
    for (const std::string& name : names)
        if (CanStandInStyle(name) &&
            std::none_of(list.begin(), list.end(), [&](const ListedName& item) { return item.name == name; }))
            list.push_back({name});
    return list;
}

std::vector<std::string> EntityLines(const drawing::EntityView& entity) {
    auto number = [](double value) { return util::FormatShortest(std::round(value * 1000) / 1000); };
    const drawing::Box box = entity.extents();
    std::vector<std::string> lines = {std::string(entity.kind()), entity.layerName(),
                                      "Length:" + number(entity.length())};
    if (entity.kindCode() == drawing::Kind::Polyline)
        lines.emplace_back(entity.isClosed() ? "CLOSED:YES" : "CLOSED:NO");
    lines.push_back("EXTENTS:" + number(box.minX) + "," + number(box.minY) + " to " + number(box.maxX) + "," +
                    number(box.maxY));
    return lines;
}

std::string PlaceText(drawing::PlanePoint place) {
    return util::FormatShortest(place.x) + "," + util::FormatShortest(place.y);
}

std::optional<drawing::PlanePoint> PlaceOf(std::string_view text) {
    std::size_t comma = text.find(',');
    if (comma == std::string_view::npos) return std::nullopt;
    std::optional<double> x = FiniteNumber(text.substr(0, comma)), y = FiniteNumber(text.substr(comma + 1));
    if (!x || !y) return std::nullopt;
    return drawing::PlanePoint{*x, *y};
}

}  // namespace vexlator::background
