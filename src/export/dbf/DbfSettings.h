// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"

namespace vexlator::exporter {

/// Settings of the export of attribute tables, from [CSV], [DBF] and [THIRD] of gv.ini.
struct DbfSettings {
    bool suppressNA = false;    ///< values "NA" are written as empty values
    bool forceEmpty = false;    ///< feature codes without features get a table too
    bool polyCentroid = false;  ///< columns with the position of each feature
    bool arbolog = false;       ///< one table of all feature codes, as tree surveys have it
};
DbfSettings ReadDbfSettings(const config::Run& run);
config::KeyList DbfKeys();

}  // namespace vexlator::exporter
