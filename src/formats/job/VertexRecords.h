// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/job/RowChains.h"

namespace vexlator::formats {

/// Finds the vertices of a feature: the position records whose field 3 begins with its ID.
class VertexRecords {
public:
    using Row = JobTable::Row;

    explicit VertexRecords(const JobTable& table);

    /// Fills `found` with the feature's records below `row`, in file order. Every record is given once at
    /// most, so all calls together take time linear in the size of the job. Ask for rows in ascending order
    /// only.
    void TakeBelow(Row row, std::string_view id, std::vector<Row>& found);

private:
    /// The first text from `place` on, in alphabetical order, with records that have not been given.
    std::size_t Untaken(std::size_t place);

    const JobTable& table_;
    RowChains byText_;                       ///< in ascending order
    std::vector<std::uint32_t> alphabetic_;  ///< chains in the alphabetical order of their texts
    std::vector<std::uint32_t> onward_;      ///< by index into alphabetic_: itself, or where to go on
};

}  // namespace vexlator::formats
