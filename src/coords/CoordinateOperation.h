// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/ArrayOperation.h"
#include "coords/ProjContext.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::coords {

/// What the text of a definition file leads to.
struct CoordinateOperation {
    ArrayOperation operation;  ///< from the grid to longitude and latitude; none when there is a reason
    std::string reason;        ///< why there is no operation
    std::vector<std::string> missingGrids;  ///< files that the best operation needs and that are not there
};

/// For people: that the best transformation lacks grids, what they can do, and what comes of it until then.
std::string MissingGridsText(const CoordinateOperation& loaded, const std::string& folderForGrids);

/// The definition in a file's bytes: without byte-order mark, blanks at both ends, and enclosing quotes.
std::string DefinitionText(std::string_view content);

/// The operation from the defined coordinate system (EPSG code, WKT, PROJ string) to WGS 84, or the defined
/// operation itself (a PROJ pipeline, which takes easting and northing to longitude and latitude).
/// A system with heights leads to heights above the ellipsoid, others leave heights alone.
/// Never rough: where the library knows no transformation of the datum, there is no operation. Where the best
/// one reads a grid, it is the only one, so that points outside the grid have no result; where that grid is
/// missing, the next best are used and `missingGrids` names them.
CoordinateOperation OperationFor(ProjContext& context, const std::string& definition);

/// The operation from one coordinate system to another, by the same rules.
CoordinateOperation OperationBetween(ProjContext& context, ProjObject from, ProjObject to);

/// The projected or geographic coordinate system that a definition means, without what it says of heights;
/// null when it means none.
ProjObject PlaneSystem(ProjContext& context, const std::string& definition);

/// A copy of a system without a shift to WGS 84 that its definition gives itself, as +towgs84 does.
ProjObject WithoutShift(ProjContext& context, const ProjObject& system);

/// Whether a text is the definition of a coordinate system or an operation by itself.
bool IsDefinition(const std::string& text);

}  // namespace vexlator::coords
