// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "BackgroundBuilder/Command.h"
#include "config/Run.h"

namespace vexlator::backgroundbuilder {

/// Maps in the National Transfer Format (NTF) become one package. Each feature code is a layer.
/// @throws platform::ReadError, WriteError; the package is then as it was
void BuildTransferFormat(config::Run& run, const Command& command);

}  // namespace vexlator::backgroundbuilder
