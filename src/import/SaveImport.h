// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"
#include "drawing/Drawing.h"

#include <functional>

namespace vexlator::importer {

/// The last step of an import: counts the layers of the drawing and saves it as `outcome.target` by calling
/// `save`. An import that took no feature from any source never replaces a drawing: one line says that it
/// stays, and the outcome is Failed, or StoppedByUser when it was that before. Where there is no drawing, the
/// empty one is saved. @throws platform::WriteError from `save`
config::Outcome SaveImport(config::Run& run, const drawing::Drawing& drawing, config::Outcome outcome,
                           const std::function<void()>& save);

}  // namespace vexlator::importer
