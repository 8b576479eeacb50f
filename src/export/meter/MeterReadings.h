// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "export/LayerLoop.h"
#include "platform/Files.h"

#include <cstdint>
#include <string>
#include <string_view>

/// The exchange file of a meter-reading system: a header line, then one line per meter, fields between
/// commas, lines ending in CR LF, Windows-1252.
///   mr,05/03/2024,DRAWING,2,mr
///   cr,MeterRef,Reading,Date,Remarks
namespace vexlator::exporter {

/// A position as text: x and y without their fractions, each with at least six digits. "000000000000" stands
/// for no position.
std::string MeterGridReference(const drawing::Point& position);

/// Writes the meters of a layer. The header counts all its entities, lines stand for points and symbols. A
/// meter whose attribute GPS is not its grid reference has that reference as its remarks. Returns how many
/// lines of meters.
/// @throws platform::WriteError
std::uint64_t WriteMeterReadings(config::Run& run, const WholeLayer& layer, std::string_view drawingName,
                                 platform::OutputFile& file);

}  // namespace vexlator::exporter
