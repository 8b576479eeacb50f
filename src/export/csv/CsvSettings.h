// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "formats/csv/CsvWriter.h"

#include <string_view>

namespace vexlator::exporter {

enum class CsvFlavour { Csv, Asc };

/// What a delimited text export is set to. These are the settings of ASC files; those of CSV files come from
/// [CSV] of gv.ini.
struct CsvSettings {
    std::string_view extension = ".ASC";
    bool sepFiles = false;    ///< a file per layer instead of one per drawing
    bool header = true;       ///< a row of column names before the rows of each layer
    bool coords = false;      ///< a column of coordinates
    bool latLng = false;      ///< points in latitude and longitude
    bool suppressNA = false;  ///< values "NA" are written empty
    bool multiXYZ = false;    ///< coordinates again, as columns of their own at the end of the row
    bool hyperlinks = false;  ///< values that name a .JPG become formulas that open it
    int decimals = 3;         ///< of x and y in the grid, 0 to 15
    formats::CsvLayout layout{.separator = '\t'};
};

CsvSettings ReadCsvSettings(const config::Run& run, CsvFlavour flavour);
config::KeyList CsvKeys();

}  // namespace vexlator::exporter
