// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "config/Outcome.h"
#include "import/ImportRun.h"
#include "import/gml/GmlEntities.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::importer {

/// GML files, compressed ones too, become one drawing, with a layer for each feature type.
class frmFromGML {
public:
    explicit frmFromGML(config::Run& run)
        : run_(run), import_(run, "frmFromGML"), entities_(run, import_.Drawing()) {}

    /// Imports `sourcePath` and the files of `fileList` (each preceded by "|"; names without a folder lie
    /// beside `sourcePath`) and saves the drawing in `sourceFolder` under the first one's base name.
    /// A file that is missing or empty, or gives no feature with a place, is reported, and the outcome is
    /// Failed.
    /// @throws platform::ReadError for a damaged file, platform::WriteError; then nothing is saved
    config::Outcome Start(std::string_view sourcePath, std::string_view sourceFolder,
                          std::string_view fileList);

private:
    /// False when nothing came from the file.
    bool ImportGmlFile(const std::string& path);
    /// Tells when the coordinate system that a file names is not the drawings'.
    void CompareSystem(const std::string& file, const std::string& srsName);
    void Report(const std::string& file);

    config::Run& run_;
    ImportRun import_;
    GmlEntities entities_;
};

config::KeyList GmlKeys();

}  // namespace vexlator::importer
