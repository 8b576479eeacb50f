// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"
#include "database/FmoDefinition.h"
#include "database/Statement.h"
#include "import/ImportRun.h"
#include "import/fmo/FmoQuery.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::importer {

/// Rows of the database tables that FMO files describe become one drawing, one layer for each file: rows of
/// point tables become symbols, geometry values become polylines, columns become text attributes.
class frmFromFMO {
public:
    explicit frmFromFMO(config::Run& run);
    ~frmFromFMO();

    /// Imports `sourcePath` and the files of `fileList` (each preceded by "|") into the drawing in
    /// `sourceFolder` that has the first one's base name; a drawing that is there already is added to.
    /// A file whose table cannot be read to the end is reported, what was read of it stays, and the outcome
    /// is Failed. When no table gave features to its end, a drawing that is there stays as it is.
    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view sourcePath, std::string_view sourceFolder,
                          std::string_view fileList);

    /// Imports, from FMODirectory, the FMO files that name a database like the one in a package: a ZIP
    /// archive. Their rows come from the databases that they name. The unpacked files are removed again.
    /// @param fileList receives the names of the files, each preceded by "|"
    /// @throws platform::ReadError for a package that cannot be unpacked, platform::WriteError
    config::Outcome StartTablet(std::string_view packagePath, std::string_view sourceFolder,
                                std::string& fileList);

private:
    void ImportFiles();
    // These three say whether the table was read to its end.
    bool ImportFmoFile(const database::FmoFile& file);
    bool ImportPoints(std::unique_ptr<database::Connection> connection, const FmoQuery& query,
                      const std::string& code, const std::string& symbol);
    bool ImportLines(std::unique_ptr<database::Connection> connection, const FmoQuery& query,
                     const std::string& code);
    std::string AddPoints(database::Statement& rows, const FmoQuery::Statement& statement,
                          const std::string& symbol);
    std::string SelectFeatureLayer(const std::string& code);
    void ShowError(const std::string& reason, const FmoQuery& query);
    config::Outcome Save();

    config::Run& run_;
    ImportRun import_;
    drawing::Drawing& drawing_;
    std::vector<database::FmoFile> files_;
    std::uint64_t count_ = 0;      ///< rows of the current file
    std::uint64_t features_ = 0;   ///< entities made
    bool tableReadToEnd_ = false;  ///< of one file at least
};

}  // namespace vexlator::importer
