// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"

#include <string>

namespace vexlator::importer {

struct JobSettings {
    bool importQA = false;   ///< mark the quality of GPS positions
    bool forceClose = true;  ///< close every area, not only those with meeting ends
};
JobSettings ReadJobSettings(const config::Run& run);
config::KeyList JobKeys();

}  // namespace vexlator::importer
