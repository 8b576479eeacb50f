// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "MakeWorldFile/CommandLine.h"

#include <string>

namespace vexlator::makeworldfile {

/// Georeferences the image, rotates and cuts it as the command says, and writes the results into the target
/// folder: bkg.jpg and bkg.jgw, or the tiles. All files appear together. Returns a report in lines for the
/// user: the fit, its residuals, worst first, and the outputs.
/// @throws platform::ReadError, platform::WriteError, georef::FitError, std::runtime_error
std::string RunJob(const Command& command);

}  // namespace vexlator::makeworldfile
