// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"

#include <string>
#include <string_view>

namespace vexlator::mapbook {

/// What the title block says of the job; "" where nothing is known.
struct JobData {
    std::string project, description, name, created, device, keyId;
};

/// Takes what the command records of a job file say: DESC, PACKAGECREATED (else DATE), DEVICE and KEYID. The
/// first of each counts.
void TakeCommandRecords(std::string_view jobText, JobData& data);

/// The data of a drawing's job, which the run knows. A job file that cannot be read leaves them empty. The
/// project is the second folder of the job below WorkFlowDirectory, else the folder of the job or drawing.
JobData ReadJobData(const config::Run& run, std::string_view drawingPath);

}  // namespace vexlator::mapbook
