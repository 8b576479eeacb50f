// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/styling/modGRPstyling.h"
#include "drawing/Drawing.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Operations on a drawing during styling.
namespace vexlator::background {

/// Moves every entity with the attribute, its name in this letter case, to the layer named by its value. Adds
/// missing layers.
void RelayerByAttribute(std::string_view fieldName, drawing::Drawing& drawing);

/// Scales a drawing in feet to metres, about the origin.
void ScaleFeetToMetres(drawing::Drawing& drawing);

/// Moves the whole drawing in the plane, so that one point comes to the other.
void MoveDrawing(drawing::Drawing& drawing, drawing::PlanePoint from, drawing::PlanePoint to);

/// Every attribute name of the drawing once, in the order of first occurrence.
std::vector<std::string> AttributeNames(drawing::Drawing& drawing);

/// The names of the drawing's layers, in its order.
std::vector<std::string> LayerNames(const drawing::Drawing& drawing);

/// Adds a row for every layer that has none and whose name a style file can hold. It leaves the layer's look
/// to the DEFAULT row.
void AddMissingLayers(std::vector<StyleRow>& rows, std::span<const std::string> layers);

}  // namespace vexlator::background
