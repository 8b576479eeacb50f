// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/styling/modGRPstyling.h"
#include "drawing/Drawing.h"

#include <string>
#include <string_view>
#include <vector>

/// What is done to a drawing, and taken from it, while it is styled.
namespace vexlator::background {

/// Moves every entity that has the attribute, its name in this letter case, to the layer named by its value;
/// layers that are missing are added.
void RelayerByAttribute(std::string_view fieldName, drawing::Drawing& drawing);

/// Scales a drawing in feet about the origin, so that it is in metres.
void ScaleFeetToMetres(drawing::Drawing& drawing);

/// Moves the whole drawing in the plane, so that one point lands on the other.
void MoveDrawing(drawing::Drawing& drawing, drawing::PlanePoint from, drawing::PlanePoint to);

/// Every attribute name of the drawing once, in the order in which they first occur.
std::vector<std::string> AttributeNames(drawing::Drawing& drawing);

/// Adds a row for every layer that has none, in the drawing's order. It leaves the layer's look to the
/// DEFAULT row.
void AddMissingLayers(std::vector<StyleRow>& rows, const drawing::Drawing& drawing);

}  // namespace vexlator::background
