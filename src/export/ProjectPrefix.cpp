// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/ProjectPrefix.h"

#include "util/Text.h"

namespace vexlator::exporter {

std::string ProjectPrefix(const config::Run& run) {
    const std::string& job = run.Settings().JobRelativePath;
    if (!run.ReadIniFlag("GENERAL", "PrefixExport") || util::CountOf(job, "\\") < 2) return "";
    return std::string(util::GetField(1, job, "\\")) + "_";
}

}  // namespace vexlator::exporter
