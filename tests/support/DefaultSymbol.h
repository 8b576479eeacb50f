// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "support/TempFolder.h"

#include <filesystem>

namespace vexlator::test {

/// Writes the symbol that stands for points without one, which imports of points ask for.
inline void WriteDefaultSymbol(const TempFolder& installation) {
    std::filesystem::create_directories(installation / "Symbols");
    drawing::Drawing symbol;
    symbol.addCircle({}, 1);
    symbol.saveAs(installation / "Symbols/DEFAULT.VDF");
}

}  // namespace vexlator::test
