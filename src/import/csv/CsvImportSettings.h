// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "formats/csv/CsvColumns.h"

#include <string>

namespace vexlator::importer {

/// How the files of an import are laid out, from section [CSVIN].
struct CsvImportSettings {
    formats::CsvTable table;
    std::string fixedFeature;  ///< feature code of every file, in capitals; "": the file's name
};

CsvImportSettings ReadCsvImportSettings(const config::Run& run);
config::KeyList CsvImportKeys();

/// What to set in gv.ini where it does not name all three columns of a table with a header, a line; "" when
/// it does.
std::string WhatToSet(const formats::CsvTable& table, const formats::CsvColumns& columns);

}  // namespace vexlator::importer
