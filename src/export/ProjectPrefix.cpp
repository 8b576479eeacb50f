// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/ProjectPrefix.h"

#include "util/Text.h"

namespace vexlator::exporter {

namespace {

struct PrefixSettings {
    bool prefix = false;
};

using Keys = config::Keys<PrefixSettings>;

constexpr config::KeyOf<PrefixSettings> keys[] = {
    Keys::Flag("GENERAL", "PrefixExport", &PrefixSettings::prefix,
               "names of CSV and database exports begin with their project's"),
};

}  // namespace

std::string ProjectPrefix(const config::Run& run) {
    const std::string& job = run.Job().relative;
    bool isWanted = config::ReadKeys<PrefixSettings>(run.Installation(), keys).prefix;
    if (!isWanted || util::CountOf(job, "\\") < 2) return "";
    return std::string(util::GetField(1, job, "\\")) + "_";
}

config::KeyList PrefixKeys() {
    return config::ListOf<PrefixSettings>(keys);
}

}  // namespace vexlator::exporter
