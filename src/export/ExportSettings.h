// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"

#include <string>

namespace vexlator::exporter {

/// What exports to several formats share.
struct ExportSettings {
    bool projectPrefix = false;     ///< names begin with their project's
    bool oneDatabaseOfJob = false;  ///< the features of a job go to one database
    bool suppressNA = false;        ///< values "NA" are written empty
};
ExportSettings ReadExportSettings(const config::Run& run);
config::KeyList ExportKeys();

/// With [GENERAL] PrefixExport, the project of the drawing's job and "_": jobs lie in engineer\project\...,
/// so that exports of the same name from several projects can be told apart. "" when the flag is off or the
/// drawing belongs to no project.
std::string ProjectPrefix(const config::Run& run);

}  // namespace vexlator::exporter
