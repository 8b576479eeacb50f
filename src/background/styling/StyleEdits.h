// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/styling/DrawingTools.h"
#include "background/styling/modGRPstyling.h"
#include "drawing/Drawing.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What a person changes while styling a drawing: all that can be undone is in one value.
namespace vexlator::background {

/// Columns of a style row, in the order of its fields in a style file.
enum class StyleColumn : std::uint8_t { Layer, Points, Lines, Areas, Thick, Zoom, Hide };
constexpr int styleColumns = 7;

std::string& CellOf(StyleRow& row, StyleColumn column);
const std::string& CellOf(const StyleRow& row, StyleColumn column);
constexpr bool IsFlag(StyleColumn column) {
    return column >= StyleColumn::Thick;
}
constexpr bool IsLook(StyleColumn column) {
    return column > StyleColumn::Layer && column < StyleColumn::Thick;
}
std::string_view FlagText(bool isOn);
/// The type of the mobile styles that a column offers: P, S or A.
std::string_view MobileTypeOf(StyleColumn column);

/// A change of the whole drawing.
struct DrawingChange {
    enum class Kind : std::uint8_t { Relayer, ScaleFeetToMetres, Move };
    Kind kind = Kind::Relayer;
    std::string field = {};                  ///< Relayer: the attribute
    drawing::PlanePoint from = {}, to = {};  ///< Move
    bool operator==(const DrawingChange&) const = default;
};

/// In order. The drawing is as it was read, so that a change is undone by reading it again without.
void ApplyChanges(std::span<const DrawingChange> changes, drawing::Drawing& drawing);

/// A style, and what was done to the drawing that it is made for.
struct StyledState {
    BackgroundStyle style;
    std::vector<DrawingChange> changes;
    bool operator==(const StyledState&) const = default;
};

/// The place of the row that a layer has of its own, in any letter case.
std::optional<std::size_t> RowOfLayer(std::span<const StyleRow> rows, std::string_view layer);

/// The attribute lists and the search entry emptied, the rows made anew: DEFAULT, and one for each layer.
void ResetStyle(BackgroundStyle& style, std::span<const std::string> layers);
/// A list with those of the names that it lacks and that a style file can hold, not selected, at its end.
std::vector<ListedName> WithNames(std::vector<ListedName> list, std::span<const std::string> names);

/// An entity in the lines that are shown of one that was clicked: kind, layer, "Length:", for polylines
/// whether it is closed, and "EXTENTS:".
std::vector<std::string> EntityLines(const drawing::EntityView& entity);

/// What "Move To.." shows of a place, and what is read of it: x,y. None when these are no two numbers.
std::string PlaceText(drawing::PlanePoint place);
std::optional<drawing::PlanePoint> PlaceOf(std::string_view text);

}  // namespace vexlator::background
