// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/job/RowChains.h"

namespace vexlator::formats {

/// Finds the attribute record of a point or feature.
class AttributeRecords {
public:
    using Row = JobTable::Row;

    explicit AttributeRecords(const JobTable& table);

    /// The record directly above a point, else the last one above it with its number. Ask for rows in
    /// ascending order only.
    Row OfPoint(Row row, std::string_view number);
    /// The record directly above a feature's first vertex, else the first one in the job with the feature's
    /// ID.
    Row OfFeature(Row row, std::string_view id) const;

private:
    bool IsOf(Row row, std::string_view key) const;

    const JobTable& table_;
    RowChains byKey_;         ///< in ascending order
    std::vector<Row> above_;  ///< by chain: the position that OfPoint() has reached
};

}  // namespace vexlator::formats
