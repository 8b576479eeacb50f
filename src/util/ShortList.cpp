// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "util/ShortList.h"

#include "platform/CodePages.h"
#include "util/Numbers.h"

namespace vexlator::util {

void ShortList::Add(const std::string& item) {
    if (!items_.insert(item).second || items_.size() > most_) return;
    if (items_.size() > 1) text_ += ", ";
    text_ += item;
}

std::string ShortList::Text() const {
    if (items_.size() <= most_) return text_;
    return text_ + " and " + GroupedCount(items_.size() - most_) + " more";
}

std::string ShortList::Shortened(std::string_view name) {
    constexpr std::size_t longest = 60;
    std::string_view start = platform::FirstCharacters(name, longest);
    return std::string(start) + (start.size() < name.size() ? "..." : "");
}

}  // namespace vexlator::util
