// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "formats/csv/CsvWriter.h"

#include <string_view>

namespace vexlator::exporter {

enum class CsvFlavour { Csv, Asc };

/// Settings of a delimited text export. The defaults are the settings of ASC files. Those of CSV files come
/// from [CSV] of gv.ini.
struct CsvSettings {
    std::string_view extension = ".ASC";
    bool sepFiles = false;    ///< a file per layer instead of one per drawing
    bool header = true;       ///< a row of column names before the rows of each layer
    bool coords = false;      ///< a column of coordinates
    bool latLng = false;      ///< points in latitude and longitude
    bool suppressNA = false;  ///< values "NA" are written as empty values
    bool multiXYZ = false;    ///< coordinates again, as separate columns at the end of the row
    bool hyperlinks = false;  ///< values with .JPG become formulas that open the photograph
    int decimals = 3;         ///< decimals of x and y in the grid, 0 to 15
    formats::CsvLayout layout{.separator = '\t'};
};

CsvSettings ReadCsvSettings(const config::Run& run, CsvFlavour flavour);
config::KeyList CsvKeys();

}  // namespace vexlator::exporter
