// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/job/JobTable.h"

#include <string_view>

namespace vexlator::formats {

/// Whether a record is a position to import: not one that holds its own coordinates when they are no numbers.
bool IsPositionRecord(const JobTable& table, JobTable::Row row);

/// Whether a record below a feature's first is one of its vertices: not one that would have to be placed by
/// its own coordinates when they are no numbers.
bool IsVertexRecord(const JobTable& table, JobTable::Row row);

struct JobPosition {
    double x = 0, y = 0, z = 0;
};

/// The coordinates of the line below a position record, else those of the record itself; 0, 0, 0 without
/// either.
JobPosition GetRecordCoordinates(const JobTable& table, JobTable::Row row);

/// The GPS quality text of a position record; empty when it was not measured by GPS.
std::string_view GetRecordQuality(const JobTable& table, JobTable::Row row);

}  // namespace vexlator::formats
