// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/ExportSettings.h"

#include "util/Text.h"

namespace vexlator::exporter {

namespace {

using Keys = config::Keys<ExportSettings>;

constexpr config::KeyOf<ExportSettings> keys[] = {
    Keys::Flag("GENERAL", "PrefixExport", &ExportSettings::projectPrefix,
               "names of CSV and database exports begin with the project's name"),
    Keys::Flag("GENERAL", "JobBasedMDB", &ExportSettings::oneDatabaseOfJob,
               "database exports write one database per job"),
    Keys::Flag("CSV", "SuppressNA", &ExportSettings::suppressNA,
               "CSV and shapefile exports write the value NA as an empty value"),
};

}  // namespace

ExportSettings ReadExportSettings(const config::Run& run) {
    return config::ReadKeys<ExportSettings>(run.Installation(), keys);
}

config::KeyList ExportKeys() {
    return config::ListOf<ExportSettings>(keys);
}

std::string ProjectPrefix(const config::Run& run) {
    const std::string& job = run.Job().relative;
    if (!ReadExportSettings(run).projectPrefix || util::CountOf(job, "\\") < 2) return "";
    return std::string(util::GetField(1, job, "\\")) + "_";
}

}  // namespace vexlator::exporter
