// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/job/JobSettings.h"

namespace vexlator::importer {

namespace {

using Keys = config::Keys<JobSettings>;

constexpr config::KeyOf<JobSettings> keys[] = {
    Keys::Flag("JOB", "ImportQA", &JobSettings::importQA,
               "imports of device jobs mark the quality of GPS positions"),
    Keys::Switch("JOB", "ForceClose", &JobSettings::forceClose,
                 "imports of device jobs close every area. Off: they close areas whose ends meet"),
};

}  // namespace

JobSettings ReadJobSettings(const config::Run& run) {
    return config::ReadKeys<JobSettings>(run.Installation(), keys);
}

config::KeyList JobKeys() {
    return config::ListOf<JobSettings>(keys);
}

}  // namespace vexlator::importer
