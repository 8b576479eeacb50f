// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/ConversionReport.h"
#include "config/Run.h"
#include "ui/UserInterface.h"

#include <string>
#include <vector>

namespace vexlator::config {

/// The program that converts what needs GDAL, which this program does not load.
constexpr std::string_view converterProgram = "vdconv.exe";

/// Shows what a program has reported, and adds its losses to the run's. @throws std::runtime_error: what
/// ended the conversion
void ShowReport(Run& run, const ConversionReport& report);

/// Has the converter program do a conversion, shows what it tells, and adds its losses to the run's. `view`
/// is where a cancel arrives. @throws std::runtime_error: what ended the conversion, or the program
ConversionReport RunConverter(Run& run, ui::FormView& view, std::vector<std::string> arguments);

}  // namespace vexlator::config
