// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

namespace vexlator::database {

/// Makes the SQLite library, which its ODBC driver uses, omit unneeded locks. Does nothing if the library is
/// in use already.
void SetUpSqlite();

}  // namespace vexlator::database
