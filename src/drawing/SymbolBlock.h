// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/Drawing.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace vexlator::drawing {

/// Limit for symbol drawings, because every drawing with a symbol contains it whole. A message reports a
/// larger one.
constexpr std::size_t largestSymbol = std::size_t{16} << 20;

/// The name of a block in the drawing that draws the symbol ("" means "default"). If the drawing has none,
/// loads the symbol's file from SymbolsDirectory, else DEFAULT.VDF there. Returns "" with a message if there
/// is neither, or if the file cannot be used.
std::string EnsureSymbolBlock(config::Run& run, std::string_view symbolName, Drawing& drawing);

}  // namespace vexlator::drawing
