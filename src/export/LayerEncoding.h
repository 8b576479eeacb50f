// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "export/LayerLoop.h"
#include "formats/TextEncoding.h"

#include <span>
#include <string>

namespace vexlator::exporter {

/// The simplest encoding that holds every value of the layer and all of `names`, for formats that name their
/// encoding.
formats::TextEncoding EncodingFor(const ExportLayer& layer, std::span<const std::string> names);

}  // namespace vexlator::exporter
