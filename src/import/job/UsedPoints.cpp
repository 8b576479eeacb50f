// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/job/UsedPoints.h"

#include "platform/AsciiCase.h"

#include <algorithm>

namespace vexlator::importer {

std::uint32_t UsedPoints::IndexOf(std::string_view number) {
    if (std::any_of(number.begin(), number.end(), [](char c) { return c >= 'A' && c <= 'Z'; })) {
        std::string lowered = platform::LowerAscii(number);
        std::uint32_t known = numbers_.Find(lowered);
        if (known != formats::TextIndex::none) return known;
        number = lowered_.emplace_back(std::move(lowered));
    }
    std::uint32_t index = numbers_.Add(number);
    if (index == entities_.size()) entities_.push_back(noEntity);
    return index;
}

void UsedPoints::EraseEarlier(std::string_view number, drawing::Drawing& drawing) {
    std::uint32_t& entity = entities_[IndexOf(number)];
    if (entity != noEntity) drawing::Entity(drawing, entity).erase();
    entity = noEntity;
}

void UsedPoints::Add(std::string_view number, drawing::Entity insert) {
    entities_[IndexOf(number)] = insert.index();
}

}  // namespace vexlator::importer
