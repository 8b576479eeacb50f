// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"
#include "import/ImportRun.h"

#include <string>
#include <string_view>

namespace vexlator::importer {

/// Imports drawings that were exported as XML. One source gives the same drawing again; the entities of
/// further ones are added with new handles.
class frmFromXML {
public:
    explicit frmFromXML(config::Run& run) : run_(run), import_(run, "frmFromXML") {}

    /// Imports `sourcePath` and the files of `fileList` (each preceded by "|"; names without a folder lie
    /// beside `sourcePath`) and saves the drawing in `sourceFolder` under the first one's base name.
    /// @throws platform::ReadError for an only file that is damaged, platform::WriteError; then nothing is
    /// saved
    config::Outcome Start(std::string_view sourcePath, std::string_view sourceFolder,
                          std::string_view fileList);

private:
    bool ImportXmlFile(const std::string& path);

    config::Run& run_;
    ImportRun import_;
    bool isFirst_ = true;
};

}  // namespace vexlator::importer
