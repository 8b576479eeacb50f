// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/Connection.h"

#include <string>
#include <string_view>

namespace vexlator::database {

/// Copies the dBASE table `name` of a folder into an open SQLite database, where it can be queried: numbers
/// as numbers, dates as 2024-03-05, deleted records left out. Nothing happens when the folder has no such
/// table.
/// @throws DatabaseError the file and what is wrong with it
void LoadDbaseTable(Connection& connection, const std::string& folder, std::string_view name);

}  // namespace vexlator::database
