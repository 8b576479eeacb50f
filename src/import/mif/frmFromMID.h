// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "config/Outcome.h"
#include "import/ImportRun.h"
#include "platform/Files.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::importer {

class MifToDrawing;

/// Imports MapInfo interchange files into one drawing, with one layer for each pair of .MIF and .MID. Points
/// become symbols, lines and areas become polylines, the columns of the .MID rows become text attributes.
class frmFromMID {
public:
    explicit frmFromMID(config::Run& run)
        : run_(run), import_(run, "frmFromMID"), drawing_(import_.Drawing()) {}

    /// Imports `sourcePath` and the files of `fileList` (each preceded by "|"; names without a folder lie
    /// beside `sourcePath`) and saves the drawing in `sourceFolder` under the first one's base name. The
    /// extensions do not count. A file that cannot be opened is reported; without its .MID a .MIF is imported
    /// without attributes; in both cases the outcome is Failed.
    /// @throws platform::ReadError for an only file that is damaged, platform::WriteError; then nothing is
    /// saved
    config::Outcome Start(std::string_view sourcePath, std::string_view sourceFolder,
                          std::string_view fileList);

private:
    /// False if one of the two files could not be read.
    bool ImportMifFile(const std::string& path);
    void ReadObjects(MifToDrawing& objects, platform::MappedFile& mif, platform::MappedFile* mid);
    void ShowProgress(const MifToDrawing& objects);

    config::Run& run_;
    ImportRun import_;
    drawing::Drawing& drawing_;
};

config::KeyList MifImportKeys();

}  // namespace vexlator::importer
