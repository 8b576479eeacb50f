// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/Gazetteer.h"

#include "background/package/PlainLine.h"
#include "util/Numbers.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace vexlator::background {

void Gazetteer::Add(std::string_view value, const Box& box) {
    Square square{std::trunc((box.minX + box.maxX) / 2), std::trunc((box.minY + box.maxY) / 2),
                  std::trunc(box.Size())};
    std::string key = platform::Utf8FromWindows1252(PlainLine(value, replaced_));
    auto [it, isNew] = squares_.try_emplace(std::move(key), square);
    if (isNew) return;
    Box both = it->second.Bounds();
    both.Widen(square.Bounds());
    it->second = {(both.minX + both.maxX) / 2, (both.minY + both.maxY) / 2, both.Size()};
}

std::string Gazetteer::Text() const {
    std::vector<const std::pair<const std::string, Square>*> rows;
    for (const auto& row : squares_) rows.push_back(&row);
    std::ranges::sort(rows, {}, [](const auto* row) -> const std::string& { return row->first; });
    std::string text;
    for (const auto* row : rows) {
        text += platform::Windows1252FromUtf8(row->first);
        for (double number : {row->second.x, row->second.y, row->second.size})
            text += ',' + util::FormatFixed(std::trunc(number), 0);
        text += "\r\n";
    }
    return text;
}

}  // namespace vexlator::background
