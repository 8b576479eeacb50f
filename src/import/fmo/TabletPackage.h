// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "database/FmoDefinition.h"
#include "platform/Files.h"
#include "platform/MadeFiles.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::importer {

/// A tablet package, unpacked into the folder beside it with its base name.
class TabletPackage {
public:
    /// @throws platform::ReadError, platform::WriteError
    TabletPackage(config::Run& run, std::string_view packagePath);
    /// Removes the unpacked files, and then the folder if it is empty. Files that others added or changed
    /// stay. Files that existed before stay too, because an export with the same name puts its results into
    /// this folder.
    ~TabletPackage();
    TabletPackage(const TabletPackage&) = delete;
    TabletPackage& operator=(const TabletPackage&) = delete;

    /// Base name, in capitals, of the first database in the package; "" if there is none.
    std::string DatabaseName() const;
    /// Keeps the unpacked files.
    void Keep() { isKept_ = true; }

private:
    platform::ExclusiveUse use_;  ///< of the package: two imports would unpack into the same folder
    std::string folder_;
    platform::MadeFiles unpacked_;
    bool isKept_ = false;
};

/// The FMO files in a folder whose database has that base name. @throws platform::ReadError
std::vector<database::FmoFile> FmoFilesForDatabase(std::string_view folder, std::string_view databaseName);

}  // namespace vexlator::importer
