// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Session.h"

#include <set>
#include <string>
#include <string_view>

namespace vexlator::importer {

/// A tablet package, unpacked into the folder beside it that has its base name.
class TabletPackage {
public:
    /// @throws platform::ReadError, platform::WriteError
    TabletPackage(config::Session& session, std::string_view packagePath);

    /// Base name, in capitals, of the first database in the package; "" when there is none.
    std::string DatabaseName() const;
    /// Removes what was unpacked, and the folder when nothing else is in it. Files that were there before
    /// stay: an export of the same name puts its results into this folder.
    void Remove();

private:
    std::string folder_;
    std::set<std::string> before_;
};

/// The names of the FMO files in a folder that name a database of that base name, each preceded by "|".
std::string FmoFilesForDatabase(const config::Session& session, std::string_view folder,
                                std::string_view databaseName);

}  // namespace vexlator::importer
