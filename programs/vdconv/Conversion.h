// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/ConversionReport.h"
#include "config/Run.h"
#include "vdconv/Command.h"

namespace vexlator::vdconv {

/// Does what the command says, and puts the outcome into the report.
/// @throws WrongUse for a format that there is none of; platform::ReadError, platform::WriteError
void Convert(config::Run& run, const Command& command, config::ConversionReport& report);

}  // namespace vexlator::vdconv
