// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "export/LayerLoop.h"

#include <string>
#include <vector>

namespace vexlator::exporter {

/// The columns for a layer's attributes. By position: the names of the entity with the most attributes. By
/// name: the names of all entities, so that no value is left out.
std::vector<std::string> HeaderNames(const ExportLayer& layer, const drawing::Drawing& drawing, bool byName);

}  // namespace vexlator::exporter
