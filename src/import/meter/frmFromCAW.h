// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"
#include "formats/meter/MeterFile.h"
#include "import/ImportRun.h"

#include <string>
#include <string_view>

namespace vexlator::importer {

/// Imports files of a meter-reading system: its meters, read and still to be read, become symbols on the
/// layer METER, so that the export gives the same lines again. A meter's place is the grid reference in its
/// remarks.
class frmFromCAW {
public:
    explicit frmFromCAW(config::Run& run) : run_(run), import_(run, "frmFromCAW") {}

    /// Imports `sourcePath` and the files of `fileList` (each preceded by "|"; names without a folder lie
    /// beside `sourcePath`) and saves the drawing in `sourceFolder` under the first one's base name.
    /// @throws platform::ReadError for an only file that is damaged, platform::WriteError; then nothing is
    /// saved
    config::Outcome Start(std::string_view sourcePath, std::string_view sourceFolder,
                          std::string_view fileList);

private:
    bool ImportMeterFile(const std::string& path);
    void ReadMeters(formats::MeterFile& meters, const std::string& symbol, platform::MappedFile& file);
    void AddMeter(const formats::MeterRecord& meter, const std::string& symbol);
    void ReportMeters(const formats::MeterFile& meters, const std::string& file, std::uint64_t read);

    config::Run& run_;
    ImportRun import_;
    drawing::AttributeSet set_ = 0;
    std::uint64_t unplaced_ = 0;  ///< of the current file
};

}  // namespace vexlator::importer
