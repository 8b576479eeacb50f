// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/Drawing.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace vexlator::drawing {

/// Larger symbol drawings are refused with a message: every drawing that uses one carries it whole.
constexpr std::size_t largestSymbol = std::size_t{16} << 20;

/// The name of a block in the drawing that draws the symbol ("" means "default"). When the drawing has none,
/// the symbol's file is loaded from SymbolsDirectory, else DEFAULT.VDF there. "" when there is neither, or
/// when the file cannot be used; the person is told.
std::string EnsureSymbolBlock(config::Run& run, std::string_view symbolName, Drawing& drawing);

}  // namespace vexlator::drawing
