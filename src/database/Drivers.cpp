// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/Drivers.h"

#include "database/Odbc.h"

namespace vexlator::database {

std::vector<std::string> DriverNames() {
    std::vector<std::string> names;
    for (odbc::InstalledDriver& driver : odbc::InstalledDrivers()) names.push_back(std::move(driver.name));
    return names;
}

}  // namespace vexlator::database
