// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vexlator::formats {

/// The number of rows of all sheets of a workbook, whose parts are read to their ends. Nothing if a part is
/// damaged or incomplete.
std::optional<std::uint64_t> XlsxRowCount(const std::string& nativePath);

}  // namespace vexlator::formats
