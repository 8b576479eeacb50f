// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "batch/Journal.h"
#include "batch/Progress.h"

#include <string>
#include <vector>

namespace vexlator::batch {

/// What is told at the end of a night: how many commands ended in which way, and what became of the first
/// that are not done. Lines with their ends.
std::string SummaryText(const Totals& totals, double seconds, const std::vector<std::string>& commands,
                        Journal& journal);

}  // namespace vexlator::batch
