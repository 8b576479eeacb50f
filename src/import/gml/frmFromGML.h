// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "config/Outcome.h"
#include "import/ImportRun.h"
#include "import/gml/GmlEntities.h"

#include <string>
#include <string_view>

namespace vexlator::importer {

/// Imports GML files, also compressed ones, into one drawing, with a layer for each feature type.
class frmFromGML {
public:
    explicit frmFromGML(config::Run& run)
        : run_(run), import_(run, "frmFromGML"), entities_(run, import_.Drawing()) {}

    /// Imports `sourcePath` and the files of `fileList` (each preceded by "|"; names without a folder are
    /// beside `sourcePath`). Saves the drawing in `sourceFolder` under the base name of the first file. A
    /// file that is missing, empty, or without features with a position is reported, and the outcome is
    /// Failed.
    /// @throws platform::ReadError for an only file that is damaged, platform::WriteError; then nothing is
    /// saved
    config::Outcome Start(std::string_view sourcePath, std::string_view sourceFolder,
                          std::string_view fileList);

private:
    /// False if nothing came from the file.
    bool ImportGmlFile(const std::string& path);

    config::Run& run_;
    ImportRun import_;
    GmlEntities entities_;
};

config::KeyList GmlKeys();

}  // namespace vexlator::importer
