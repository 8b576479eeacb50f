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

/// Imports the database tables of FMO files into one drawing, with one layer per file. Rows of point tables
/// become symbols, geometry values become polylines, columns become text attributes.
class frmFromFMO {
public:
    explicit frmFromFMO(config::Run& run);
    ~frmFromFMO();

    /// Imports `sourcePath` and the files of `fileList` (each preceded by "|") into the drawing in
    /// `sourceFolder` with the base name of the first file. An existing drawing is extended. If a table
    /// cannot be read to its end, this is reported, its rows so far stay, and the outcome is Failed. If no
    /// table gave features to its end, an existing drawing stays unchanged.
    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view sourcePath, std::string_view sourceFolder,
                          std::string_view fileList);

    /// Imports the FMO files in FMODirectory whose database has the same name as one in a package, a ZIP
    /// archive. The rows come from the databases that the FMO files name. The unpacked files are removed
    /// again.
    /// @param fileList receives the names of the files, each preceded by "|"
    /// @throws platform::ReadError for a package that cannot be unpacked, platform::WriteError
    config::Outcome StartTablet(std::string_view packagePath, std::string_view sourceFolder,
                                std::string& fileList);

private:
    void ImportFiles();
    // These three return whether the table was read to its end.
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
    std::uint64_t count_ = 0;      ///< number of rows of the current file
    std::uint64_t features_ = 0;   ///< number of new entities
    bool tableReadToEnd_ = false;  ///< at least one file was read completely
};

}  // namespace vexlator::importer
