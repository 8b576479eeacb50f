// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/ProjContext.h"

#include <string>

namespace vexlator::coords {

/// Whether coordinates mean the same in both systems, as far as the library knows. Names, axis order and
/// shifts to WGS 84 in a definition are ignored. So is the datum if one system has none. False if one is
/// null.
bool AreSame(ProjContext& context, const ProjObject& one, const ProjObject& other);

/// In degrees, not in a grid.
bool IsGeographic(ProjContext& context, const ProjObject& system);

/// A projected system in feet.
ProjObject InFeet(ProjContext& context, const ProjObject& system);

/// The system's name for the user; `otherwise` if it has none.
std::string NameOf(const ProjObject& system, const std::string& otherwise);

}  // namespace vexlator::coords
