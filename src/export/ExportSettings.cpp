// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/ExportSettings.h"

#include "util/Text.h"

namespace vexlator::exporter {

namespace {

using Keys = config::Keys<ExportSettings>;

constexpr config::KeyOf<ExportSettings> keys[] = {
    Keys::Flag("GENERAL", "PrefixExport", &ExportSettings::projectPrefix,
               "names of CSV and database exports begin with their project's"),
    Keys::Flag("GENERAL", "JobBasedMDB", &ExportSettings::oneDatabaseOfJob,
               "one database per job in database exports"),
    Keys::Flag("CSV", "SuppressNA", &ExportSettings::suppressNA,
               "the value NA is written as an empty value, in shapefile exports too"),
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
