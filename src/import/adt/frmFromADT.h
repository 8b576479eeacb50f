// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"
#include "formats/adt/AdtFile.h"
#include "import/FeatureLayers.h"
#include "import/ImportRun.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace vexlator::importer {

/// Imports files of feature records: each becomes a symbol on the layer of its code, with the attributes of
/// the code's template. A template may stand for another code. Values behind the last field of the template
/// become attributes FIELD1 and so on, by their place.
class frmFromADT {
public:
    explicit frmFromADT(config::Run& run);

    /// Imports `sourcePath` and the files of `fileList` (each preceded by "|"; names without a folder lie
    /// beside `sourcePath`) and saves the drawing in `sourceFolder` under the first one's base name.
    /// @throws platform::ReadError for an only file that is damaged, platform::WriteError; then nothing is
    /// saved
    config::Outcome Start(std::string_view sourcePath, std::string_view sourceFolder,
                          std::string_view fileList);

private:
    struct OddRecords {
        std::uint64_t count = 0, firstLine = 0;
    };

    bool ImportAdtFile(const std::string& path);
    void AddFeature(const formats::AdtRecord& record);
    /// The attributes of a code whose record has that many values.
    drawing::AttributeSet AttributesFor(std::size_t values);
    void ReportOdd(const std::string& file, const std::string& what, std::uint64_t count, std::uint64_t line);

    config::Run& run_;
    ImportRun import_;
    drawing::Drawing& drawing_;
    FeatureLayers layers_;
    std::unordered_map<std::string, drawing::AttributeSet>
        longSets_;  ///< with more names than the template has
};

}  // namespace vexlator::importer
