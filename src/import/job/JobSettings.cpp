// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/job/JobSettings.h"

namespace vexlator::importer {

namespace {

using Keys = config::Keys<JobSettings>;

constexpr config::KeyOf<JobSettings> keys[] = {
    Keys::Flag("JOB", "ImportQA", &JobSettings::importQA,
               "device job imports mark the quality of GPS positions"),
    Keys::Switch("JOB", "ForceClose", &JobSettings::forceClose,
                 "areas of device jobs are always closed, not only where their ends meet"),
};

}  // namespace

JobSettings ReadJobSettings(const config::Run& run) {
    return config::ReadKeys<JobSettings>(run.Installation(), keys);
}

config::KeyList JobKeys() {
    return config::ListOf<JobSettings>(keys);
}

}  // namespace vexlator::importer
