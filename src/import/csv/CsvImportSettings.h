// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "formats/csv/CsvColumns.h"

#include <string>

namespace vexlator::importer {

/// The layout of the files of an import, from section [CSVIN].
struct CsvImportSettings {
    formats::CsvTable table;
    std::string fixedFeature;  ///< feature code of every file, in capitals; "": the file's name
};

CsvImportSettings ReadCsvImportSettings(const config::Run& run);
config::KeyList CsvImportKeys();

/// Advice for gv.ini, in one line, if it does not name all three columns of a table with a header; "" if it
/// does.
std::string WhatToSet(const formats::CsvTable& table, const formats::CsvColumns& columns);

}  // namespace vexlator::importer
