// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/job/AttributeRecords.h"

namespace vexlator::formats {

AttributeRecords::AttributeRecords(const JobTable& table) : table_(table), byKey_(table.RowCount()) {
    for (Row row = table.RowCount(); row-- > 0;)
        if (table.Kind(row) == RecordKind::Attributes) byKey_.AddInFront(table.Field(row, 1), row);
    for (std::uint32_t chain = 0; chain < byKey_.Texts().Count(); ++chain)
        above_.push_back(byKey_.First(chain));
}

bool AttributeRecords::IsOf(Row row, std::string_view key) const {
    return table_.Kind(row) == RecordKind::Attributes && table_.Field(row, 1) == key;
}

JobTable::Row AttributeRecords::OfPoint(Row row, std::string_view number) {
    if (row > 0 && IsOf(row - 1, number)) return row - 1;
    std::uint32_t chain = byKey_.Texts().Find(number);
    if (chain == TextIndex::none || above_[chain] > row) return JobTable::noRow;
    Row& above = above_[chain];
    while (byKey_.Next(above) < row) above = byKey_.Next(above);
    return above;
}

JobTable::Row AttributeRecords::OfFeature(Row row, std::string_view id) const {
    if (row > 0 && IsOf(row - 1, id)) return row - 1;
    std::uint32_t chain = byKey_.Texts().Find(id);
    return chain == TextIndex::none ? JobTable::noRow : byKey_.First(chain);
}

}  // namespace vexlator::formats
