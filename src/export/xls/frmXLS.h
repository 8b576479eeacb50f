// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "config/Outcome.h"
#include "formats/xlsx/XlsxRows.h"

#include <string_view>

namespace vexlator::exporter {

struct BegunExport;

/// Exports a drawing as a workbook (.xlsx), new or filled into a template: a sheet for every layer with
/// entities, with the attributes of every entity, its kind and place. Photographs are links.
class frmXLS {
public:
    explicit frmXLS(config::Run& run) : run_(run) {}

    /// Writes NAME.xlsx, with the drawing's name, into the existing folder `targetPath`.
    /// @throws platform::ReadError for a drawing or template that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);

private:
    void WriteSheets(BegunExport& begun, std::string_view targetPath, formats::XlsxRows& writer);

    config::Run& run_;
};

config::KeyList XlsKeys();

}  // namespace vexlator::exporter
