// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"

#include <string_view>

namespace vexlator::exporter {

/// Makes the thumbnail of every photograph (.JPG, .BMP) in a folder and the folders below it, beside it. One
/// whose picture cannot be used gets none, and a line says why.
/// @throws platform::WriteError
void MakeThumbnails(config::Run& run, std::string_view folder);

}  // namespace vexlator::exporter
