// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "BackgroundBuilder/Command.h"
#include "config/Run.h"

namespace vexlator::backgroundbuilder {

/// Images that lie on the ground, by their world files or by what they say themselves, become one image
/// package. @throws platform::ReadError, WriteError; the package is then as it was
void BuildImages(config::Run& run, const Command& command);

}  // namespace vexlator::backgroundbuilder
