// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/Connection.h"
#include "database/Table.h"

#include <string>

namespace vexlator::workflow {

/// Creates ActionTbl and JobHdr if missing, JobHdr with at most one row per job. Programs that do so at the
/// same time wait for each other.
/// @throws database::DatabaseError
void CreateMissingTables(database::Connection& connection);

/// @throws database::DatabaseError if it is missing
database::Table TableOf(database::Connection& connection, const std::string& name);

}  // namespace vexlator::workflow
