// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "batch/Journal.h"
#include "batch/Progress.h"

#include <string>
#include <vector>

namespace vexlator::batch {

/// The text at the end of a batch run: the number of commands by the way they ended, and the results of the
/// first commands that are not done. Lines with their line ends.
std::string SummaryText(const Totals& totals, double seconds, const std::vector<std::string>& commands,
                        Journal& journal);

}  // namespace vexlator::batch
