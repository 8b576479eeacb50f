// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

namespace vexlator::database {

/// Has the SQLite library, which its ODBC driver uses, leave out locks that nobody needs. Does nothing when
/// the library is in use already.
void SetUpSqlite();

}  // namespace vexlator::database
