// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/job/JobTable.h"
#include "formats/job/TextIndex.h"

#include <string_view>
#include <vector>

namespace vexlator::formats {

/// The rows of a job table by the text of one of their fields. Every text has a chain of its rows, the last
/// added first. Each row is in one chain at most.
class RowChains {
public:
    using Row = JobTable::Row;

    explicit RowChains(Row rowCount) : next_(rowCount) {}

    void AddInFront(std::string_view text, Row row) {
        std::uint32_t chain = texts_.Add(text);
        if (chain == first_.size()) first_.push_back(JobTable::noRow);
        next_[row] = first_[chain];
        first_[chain] = row;
    }

    const TextIndex& Texts() const { return texts_; }
    Row First(std::uint32_t chain) const { return first_[chain]; }
    Row Next(Row row) const { return next_[row]; }
    void RemoveFirst(std::uint32_t chain) { first_[chain] = next_[first_[chain]]; }

private:
    TextIndex texts_;
    std::vector<Row> first_;  ///< by the text's number
    std::vector<Row> next_;   ///< by row
};

}  // namespace vexlator::formats
