// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/fmo/TabletPackage.h"

#include "import/FeatureCode.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "workflow/JobPackage.h"

namespace vexlator::importer {

namespace {

/// Files of a folder and of all folders below; links are left alone.
std::set<std::string> FilesBelow(const std::string& folder) {
    std::set<std::string> files;
    for (const std::string& name : platform::ListFiles(folder)) files.insert(util::JoinPath(folder, name));
    for (const std::string& name : platform::ListFolders(folder)) {
        std::string below = util::JoinPath(folder, name);
        if (!platform::IsLink(below)) files.merge(FilesBelow(below));
    }
    return files;
}

void RemoveEmptyFolders(const std::string& folder) {
    for (const std::string& name : platform::ListFolders(folder)) {
        std::string below = util::JoinPath(folder, name);
        if (!platform::IsLink(below)) RemoveEmptyFolders(below);
    }
    util::RemoveFolder(folder);
}

}  // namespace

TabletPackage::TabletPackage(config::Session& session, std::string_view packagePath)
    : folder_(util::ChangeExtension(packagePath, "")), before_(FilesBelow(folder_)) {
    workflow::frmZip2(session).UnZipJobFolder(packagePath);
}

std::string TabletPackage::DatabaseName() const {
    for (const std::string& name : platform::ListFiles(folder_))
        if (util::MatchesPattern(name, "*.mdb")) return Capitals(util::BaseNameOf(name));
    return "";
}

void TabletPackage::Remove() {
    for (const std::string& path : FilesBelow(folder_))
        if (!before_.contains(path)) platform::RemoveFile(path);
    RemoveEmptyFolders(folder_);
}

std::string FmoFilesForDatabase(const config::Session& session, std::string_view folder,
                                std::string_view databaseName) {
    std::string list;
    if (folder.empty()) return list;
    for (const std::string& name : platform::ListFiles(folder)) {
        if (!util::MatchesPattern(name, "*.FMO")) continue;
        std::string database = session.ReadIni("DEF", "MDB", util::JoinPath(folder, name));
        if (Capitals(util::BaseNameOf(database)) == databaseName) list += "|" + name;
    }
    return list;
}

}  // namespace vexlator::importer
