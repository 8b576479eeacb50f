// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/job/JobTable.h"

namespace vexlator::formats {

/// Puts the newest version of every record that was edited into the place of the record, so that vertices
/// keep their order, and takes out what was deleted.
void ResolveSupersededRecords(JobTable& table);

}  // namespace vexlator::formats
