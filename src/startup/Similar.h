// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vexlator::startup {

/// True for a word that differs from the other in one added, missing or wrong letter, or in two exchanged
/// letters; true for equal words. Letter case counts.
bool IsOneSlipFrom(std::string_view word, std::string_view meant);

}  // namespace vexlator::startup
