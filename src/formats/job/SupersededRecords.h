// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/job/JobTable.h"

namespace vexlator::formats {

/// Replaces every edited record by its newest version, so that vertices keep their order, and removes deleted
/// records.
void ResolveSupersededRecords(JobTable& table);

}  // namespace vexlator::formats
