// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "BackgroundBuilder/Command.h"
#include "config/Run.h"

namespace vexlator::backgroundbuilder {

/// National topography (GML, also compressed) becomes one classified package: the features of the sources, or
/// what those of earlier runs are after the sources' change-only updates.
///
/// A state that is kept, MMBACKUP\PACKAGE.sqlite, changes as a whole before the package does, so that a run
/// that was killed can be repeated.
/// @throws platform::ReadError, WriteError; package and state are as they were, but for a package that could
/// not be written: then the state is new
void BuildTopography(config::Run& run, const Command& command);

}  // namespace vexlator::backgroundbuilder
