// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "import/ImportRun.h"
#include "import/job/JobToDrawing.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::importer {

/// Imports job files of the field device (JOB, PAK) into one drawing. Points become symbols, lines and areas
/// become polylines, values become text attributes. The GPS trails beside them become GPX files.
class frmFromJOB {
public:
    explicit frmFromJOB(config::Run& run)
        : run_(run), import_(run, "frmFromJOB"), drawing_(import_.Drawing()) {}

    /// Imports `sourcePath` and the files of `fileList` (each preceded by "|"; names without a folder lie
    /// beside `sourcePath`) into the drawing in `sourceFolder` that has the first one's base name. A drawing
    /// that is there already is added to, which is told. A drawing without the property "Source" gets
    /// `sourcePath` as that. A file that cannot be opened or holds no record, or a trail that cannot be
    /// converted, is reported and left out, and the outcome is Failed. The outcome counts what the drawing
    /// holds.
    /// @throws platform::ReadError for a damaged drawing, template or only job, platform::WriteError; then no
    /// drawing is saved
    config::Outcome Start(std::string_view sourcePath, std::string_view sourceFolder,
                          std::string_view fileList);

private:
    /// False if the file cannot be opened or has no records.
    bool ImportJobFile(const std::string& path, JobToDrawing& importer);
    void ReportAddition(const config::Outcome& outcome, std::uint64_t before, bool isOfSameJob);

    config::Run& run_;
    ImportRun import_;
    drawing::Drawing& drawing_;
};

}  // namespace vexlator::importer
