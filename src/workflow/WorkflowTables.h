// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/Connection.h"
#include "database/Table.h"

#include <string>

namespace vexlator::workflow {

/// Makes ActionTbl and JobHdr where they are missing, JobHdr with one row per job at most. Programs that do
/// so at once wait for each other. @throws database::DatabaseError
void CreateMissingTables(database::Connection& connection);

/// @throws database::DatabaseError when the database lacks it
database::Table TableOf(database::Connection& connection, const std::string& name);

}  // namespace vexlator::workflow
