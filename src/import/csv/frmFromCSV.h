// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"
#include "formats/csv/CsvRecords.h"
#include "import/ImportRun.h"
#include "import/csv/CsvImportSettings.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::importer {

/// Imports tables of points into one drawing. Each record becomes a symbol on the layer of its file's feature
/// code. The values of its other columns become text attributes. Settings: section [CSVIN].
class frmFromCSV {
public:
    explicit frmFromCSV(config::Run& run);

    /// Imports `sourcePath` and the files of `fileList` (each preceded by "|"; names without a folder lie
    /// beside `sourcePath`) and saves the drawing in `sourceFolder` under the first one's base name.
    /// A file that cannot be opened, or whose columns are missing, is reported and left out, and the outcome
    /// is Failed, or StoppedByUser when an answer left out all that there was.
    /// @throws platform::ReadError for an only file that is damaged, platform::WriteError; then nothing is
    /// saved
    config::Outcome Start(std::string_view sourcePath, std::string_view sourceFolder,
                          std::string_view fileList);

private:
    /// False if the file is left out.
    bool ImportCsvFile(const std::string& path);
    bool ImportTable(const std::string& code, platform::MappedFile& file);
    bool HasItsColumns();
    void ReadRecords(formats::CsvRecords& records, const std::string& symbol, platform::MappedFile& file);
    struct OddRows {
        std::uint64_t count = 0, firstLine = 0;
        void Add(std::uint64_t line) {
            if (count++ == 0) firstLine = line;
        }
    };
    void Tell(const std::string& fileName, const std::string& what, const OddRows& rows, std::uint64_t all);
    void AttachCsvAttributes(const formats::CsvRecord& record);
    void ShowCsvProgress(std::uint64_t count);

    config::Run& run_;
    ImportRun import_;
    drawing::Drawing& drawing_;
    CsvImportSettings settings_;
    formats::CsvColumns columns_;
    drawing::AttributeSet set_ = 0;
};

}  // namespace vexlator::importer
