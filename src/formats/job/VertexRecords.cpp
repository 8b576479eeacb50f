// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/job/VertexRecords.h"

#include "formats/job/RecordCoordinates.h"

#include <algorithm>
#include <numeric>

namespace vexlator::formats {

VertexRecords::VertexRecords(const JobTable& table) : table_(table), byText_(table.RowCount()) {
    for (Row row = table.RowCount(); row-- > 0;)
        if (table.IsPosition(row)) byText_.AddInFront(table.Field(row, 3), row);
    const TextIndex& texts = byText_.Texts();
    alphabetic_.resize(texts.Count());
    std::iota(alphabetic_.begin(), alphabetic_.end(), 0U);
    std::sort(alphabetic_.begin(), alphabetic_.end(),
              [&](std::uint32_t a, std::uint32_t b) { return texts.Text(a) < texts.Text(b); });
    onward_.resize(alphabetic_.size() + 1);
    std::iota(onward_.begin(), onward_.end(), 0U);
}

std::size_t VertexRecords::Untaken(std::size_t place) {
    while (onward_[place] != place) {
        onward_[place] = onward_[onward_[place]];  // shortens the next search
        place = onward_[place];
    }
    return place;
}

void VertexRecords::TakeBelow(Row row, std::string_view id, std::vector<Row>& found) {
    found.clear();
    const TextIndex& texts = byText_.Texts();
    auto begin = std::lower_bound(
        alphabetic_.begin(), alphabetic_.end(), id,
        [&](std::uint32_t chain, std::string_view text) { return texts.Text(chain) < text; });
    auto place = Untaken(static_cast<std::size_t>(begin - alphabetic_.begin()));
    std::size_t chains = 0;
    for (; place < alphabetic_.size() && texts.Text(alphabetic_[place]).starts_with(id);
         place = Untaken(place + 1), ++chains) {
        for (Row next = byText_.First(alphabetic_[place]); next != JobTable::noRow; next = byText_.Next(next))
            if (next > row && IsVertexRecord(table_, next)) found.push_back(next);
        onward_[place] = static_cast<std::uint32_t>(place + 1);
    }
    if (chains > 1) std::sort(found.begin(), found.end());
}

}  // namespace vexlator::formats
