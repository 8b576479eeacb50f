// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "import/ImportRun.h"
#include "import/shapefile/ShapeCoordinates.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::formats {
class ShapeRecord;
}

namespace vexlator::importer {

/// Imports shapefiles into one drawing, with one layer for each. Points become symbols, lines and the rings
/// of areas become polylines, columns of the attribute table become text attributes.
class frmFromSHP {
public:
    explicit frmFromSHP(config::Run& run);
    ~frmFromSHP();

    /// Imports `sourcePath` and the files of `fileList` (each preceded by "|"; names without a folder lie
    /// beside `sourcePath`) and saves the drawing in `sourceFolder` under the first one's base name.
    /// A file that cannot be opened is reported and left out, and the outcome is Failed.
    /// @throws platform::ReadError for an only file that is damaged, platform::WriteError; then nothing is
    /// saved
    config::Outcome Start(std::string_view sourcePath, std::string_view sourceFolder,
                          std::string_view fileList);

    /// The feature code of a shapefile: see FeatureCodeOf.
    static std::string mkCodeNameFromFile(std::string_view path);

private:
    struct Source;

    /// False if a required file cannot be opened.
    bool ImportShapefile(const std::string& path);
    void ReadRecords(Source& source);
    void AddShape(Source& source, const formats::ShapeRecord& record);
    void AddParts(Source& source, const formats::ShapeRecord& record);
    void AddAttributes(Source& source, const formats::ShapeRecord& record);
    void ShowUnknownType(const Source& source, const formats::ShapeRecord& record);
    /// Returns the symbol of the code's points.
    std::string SelectShapefileLayer(const std::string& code);
    void UseStyleFor(const formats::ShapeRecord& record);
    void Report(const Source& source);

    config::Run& run_;
    ImportRun import_;
    drawing::Drawing& drawing_;
    ShapeImportSettings settings_;
    ShapeCoordinates coordinates_;
};

}  // namespace vexlator::importer
