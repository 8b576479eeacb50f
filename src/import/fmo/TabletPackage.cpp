// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/fmo/TabletPackage.h"

#include "import/FeatureCode.h"
#include "platform/Files.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "workflow/JobPackage.h"

#include <utility>

namespace vexlator::importer {

TabletPackage::TabletPackage(config::Run& run, std::string_view packagePath)
    : use_(packagePath, "somebody else is importing it; try again when that has ended"),
      folder_(util::ChangeExtension(packagePath, "")),
      unpacked_(workflow::frmZip2(run).UnZipJobFolder(packagePath)) {}

TabletPackage::~TabletPackage() {
    if (isKept_) return;
    unpacked_.Remove();
    util::RemoveFolder(folder_);
}

std::string TabletPackage::DatabaseName() const {
    for (const std::string& name : platform::ListFiles(folder_))
        if (util::MatchesPattern(name, "*.mdb")) return Capitals(util::BaseNameOf(name));
    return "";
}

std::vector<database::FmoFile> FmoFilesForDatabase(std::string_view folder, std::string_view databaseName) {
    std::vector<database::FmoFile> files;
    if (folder.empty()) return files;
    for (const std::string& name : platform::ListFiles(folder)) {
        if (!util::MatchesPattern(name, "*.FMO")) continue;
        database::FmoFile file = database::ReadFmoFile(util::JoinPath(folder, name));
        if (Capitals(util::BaseNameOf(database::DatabaseOf(file))) == databaseName)
            files.push_back(std::move(file));
    }
    return files;
}

}  // namespace vexlator::importer
