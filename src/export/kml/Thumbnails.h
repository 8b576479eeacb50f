// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"

#include <string_view>

namespace vexlator::exporter {

/// Makes the thumbnail of every photograph (.JPG, .BMP) in a folder and its sub-folders, beside the
/// photograph. If a photograph cannot be used, a message says why, and it gets none.
/// @throws platform::WriteError
void MakeThumbnails(config::Run& run, std::string_view folder);

}  // namespace vexlator::exporter
