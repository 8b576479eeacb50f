// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vexlator::startup {

/// True for a word with one letter more, less or wrong than the one that is meant, or with two that changed
/// places; for that word itself, too. Letter case counts.
bool IsOneSlipFrom(std::string_view word, std::string_view meant);

}  // namespace vexlator::startup
