// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace vexlator::database {

/// Names of the ODBC drivers that the system's configuration lists, as they stand in connection strings.
/// @throws DatabaseError when the driver manager does not work
std::vector<std::string> DriverNames();

}  // namespace vexlator::database
