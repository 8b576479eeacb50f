// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/job/JobTable.h"

#include <string_view>

namespace vexlator::formats {

/// Whether a record is a position to import. It is not if its own coordinates are not numbers.
bool IsPositionRecord(const JobTable& table, JobTable::Row row);

/// Whether a record below a feature's first is one of its vertices. It is not if its place depends on its own
/// coordinates and these are not numbers.
bool IsVertexRecord(const JobTable& table, JobTable::Row row);

struct JobPosition {
    double x = 0, y = 0, z = 0;
};

/// The coordinates in the line below a position record, else those of the record itself; 0, 0, 0 without
/// either.
JobPosition GetRecordCoordinates(const JobTable& table, JobTable::Row row);

/// The GPS quality text of a position record; empty if it was not measured by GPS.
std::string_view GetRecordQuality(const JobTable& table, JobTable::Row row);

}  // namespace vexlator::formats
