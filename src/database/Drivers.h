// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace vexlator::database {

/// Names of the ODBC drivers in the system's configuration, as in connection strings.
/// @throws DatabaseError if the driver manager does not work
std::vector<std::string> DriverNames();

}  // namespace vexlator::database
