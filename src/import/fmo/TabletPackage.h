// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "database/FmoDefinition.h"
#include "platform/MadeFiles.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::importer {

/// A tablet package, unpacked into the folder beside it that has its base name.
class TabletPackage {
public:
    /// @throws platform::ReadError, platform::WriteError
    TabletPackage(config::Run& run, std::string_view packagePath);
    /// Removes what was unpacked, and the folder when it is empty then. What others put or changed there
    /// stays, and so do files that were there before: an export of the same name puts its results into this
    /// folder.
    ~TabletPackage();
    TabletPackage(const TabletPackage&) = delete;
    TabletPackage& operator=(const TabletPackage&) = delete;

    /// Base name, in capitals, of the first database in the package; "" when there is none.
    std::string DatabaseName() const;
    /// Leaves what was unpacked where it is.
    void Keep() { isKept_ = true; }

private:
    std::string folder_;
    platform::MadeFiles unpacked_;
    bool isKept_ = false;
};

/// The FMO files in a folder that name a database of that base name. @throws platform::ReadError
std::vector<database::FmoFile> FmoFilesForDatabase(std::string_view folder, std::string_view databaseName);

}  // namespace vexlator::importer
