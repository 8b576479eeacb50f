// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/ProjContext.h"

#include <string>

namespace vexlator::coords {

/// Whether coordinates mean the same in both systems, as far as the library knows: names, the order of axes
/// and shifts to WGS 84 that a definition gives itself do not count, nor does the datum where one leaves it
/// open. False when one is null.
bool AreSame(ProjContext& context, const ProjObject& one, const ProjObject& other);

/// Degrees, not a grid.
bool IsGeographic(ProjContext& context, const ProjObject& system);

/// A projected system in feet.
ProjObject InFeet(ProjContext& context, const ProjObject& system);

/// For people; `otherwise` where the definition names none.
std::string NameOf(const ProjObject& system, const std::string& otherwise);

}  // namespace vexlator::coords
