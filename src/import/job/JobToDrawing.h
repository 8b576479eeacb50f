// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/Drawing.h"
#include "formats/job/JobTable.h"
#include "import/FeatureLayers.h"
#include "import/job/FeatureCloser.h"
#include "import/job/JobSettings.h"

#include <cstdint>
#include <string_view>

namespace vexlator::importer {

/// The results of a job file.
struct JobCounts {
    std::uint64_t entities = 0;   ///< points and features
    std::uint64_t positions = 0;  ///< points and vertices
    std::uint64_t closings = 0;   ///< commands that closed a feature
    std::uint64_t leftOut = 0;    ///< position records whose x or y is no number
    formats::JobTable::Row firstLeftOut = formats::JobTable::noRow;
};

/// Converts the records of job files to the entities of one drawing.
class JobToDrawing {
public:
    JobToDrawing(config::Run& run, drawing::Drawing& drawing, JobSettings settings);

    /// Adds the records of the table, which are used up. Edited and deleted records must have been resolved.
    /// `jobPath`: see RecordAttributes.
    /// @throws platform::ReadError: line and reason
    JobCounts ImportRecords(formats::JobTable& table, std::string_view jobPath, ui::FormView& view);

private:
    class Job;

    void RemoveReferenceLayers();

    drawing::Drawing& drawing_;
    const JobSettings settings_;
    FeatureLayers layers_;
    FeatureCloser closer_;
};

}  // namespace vexlator::importer
