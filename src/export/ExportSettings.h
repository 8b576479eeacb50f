// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"

#include <string>

namespace vexlator::exporter {

/// Settings of exports to several formats.
struct ExportSettings {
    bool projectPrefix = false;     ///< names begin with the project's name
    bool oneDatabaseOfJob = false;  ///< the features of a job go to one database
    bool suppressNA = false;        ///< values "NA" are written as empty values
};
ExportSettings ReadExportSettings(const config::Run& run);
config::KeyList ExportKeys();

/// With [GENERAL] PrefixExport, the project of the drawing's job and "_". Jobs are in engineer\project\...,
/// so the prefix distinguishes exports with the same name from several projects. "" if the flag is off or the
/// drawing has no job.
std::string ProjectPrefix(const config::Run& run);

}  // namespace vexlator::exporter
