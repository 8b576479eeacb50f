// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "export/LayerLoop.h"
#include "platform/Files.h"

#include <cstdint>
#include <string>
#include <string_view>

/// The exchange file of a meter-reading system: a header line, then one line per meter, with fields separated
/// by commas and lines ending in CR LF, in Windows-1252.
///     mr,05/03/2024,DRAWING,2,mr
///     cr,MeterRef,Reading,Date,Remarks
namespace vexlator::exporter {

/// A position as text: x and y without their fractions, each with at least six digits. "000000000000" means
/// no position.
std::string MeterGridReference(const drawing::Point& position);

/// Writes the meters of a layer. The header has the number of all its entities; points and symbols have
/// lines. If a meter's attribute GPS differs from its grid reference, its remarks are the grid reference.
/// Returns the number of lines of meters.
/// @throws platform::WriteError
std::uint64_t WriteMeterReadings(config::Run& run, const WholeLayer& layer, std::string_view drawingName,
                                 platform::OutputFile& file);

}  // namespace vexlator::exporter
