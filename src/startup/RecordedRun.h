// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/ConversionReport.h"
#include "config/Installation.h"
#include "config/Run.h"

#include <functional>

namespace vexlator::startup {

/// A conversion for a program that has started this one. `prepare` gives settings to the installation of the
/// user before they are read; `convert` fills the report. What a user would see, and what ended the
/// conversion, are in it too.
/// @throws platform::Stopped
config::ConversionReport RecordedRun(
    const std::function<void(config::Installation&)>& prepare,
    const std::function<void(config::Run&, config::ConversionReport&)>& convert);

}  // namespace vexlator::startup
