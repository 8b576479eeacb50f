// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/ArrayOperation.h"
#include "coords/ProjContext.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::coords {

/// The result of loading the text of a definition file.
struct CoordinateOperation {
    ArrayOperation operation;  ///< from the grid to longitude and latitude; none if there is a reason
    std::string reason;        ///< why there is no operation
    std::vector<std::string> missingGrids;  ///< missing files of the best operation
};

/// Message for the user: the best transformation lacks grids, how to get them, and which accuracy applies
/// until then.
std::string MissingGridsText(const CoordinateOperation& loaded, const std::string& folderForGrids);

/// The definition in a file's bytes, without byte-order mark, blanks at both ends, and enclosing quotes.
std::string DefinitionText(std::string_view content);

/// The operation from the defined coordinate system (EPSG code, WKT, PROJ string) to WGS 84, or the defined
/// operation itself (a PROJ pipeline from easting and northing to longitude and latitude). A system with
/// heights leads to ellipsoidal heights; others do not change heights. There is no operation without a known
/// datum transformation, because results would be rough. If the best operation reads a grid, it is the only
/// one, so points outside the grid have no result. If the grid is missing, the next best operations are used,
/// and `missingGrids` names the grids.
CoordinateOperation OperationFor(ProjContext& context, const std::string& definition);

/// The operation from one coordinate system to another, by the same rules.
CoordinateOperation OperationBetween(ProjContext& context, ProjObject from, ProjObject to);

/// The projected or geographic coordinate system of a definition, without its height system; null if there is
/// none.
ProjObject PlaneSystem(ProjContext& context, const std::string& definition);

/// A copy of a system without a shift to WGS 84 in its own definition, such as +towgs84.
ProjObject WithoutShift(ProjContext& context, const ProjObject& system);

/// Whether a text is the definition of a coordinate system or an operation by itself.
bool IsDefinition(const std::string& text);

}  // namespace vexlator::coords
