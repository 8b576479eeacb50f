// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/Connection.h"

#include <string>
#include <string_view>

namespace vexlator::database {

/// Copies the dBASE table `name` of a folder into an open SQLite database for queries: numbers as numbers,
/// dates as 2024-03-05, without deleted records. Does nothing if the folder has no such table.
/// @throws DatabaseError the file and its fault
void LoadDbaseTable(Connection& connection, const std::string& folder, std::string_view name);

}  // namespace vexlator::database
