// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/builder/AttributeList.h"

#include "platform/AsciiCase.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::background {

namespace {

constexpr std::int64_t mostWidth = 65535;

}  // namespace

AttributeList::AttributeList(std::string_view text) {
    for (std::size_t open = text.find('{'); open != text.npos; open = text.find('{', open)) {
        std::size_t close = text.find('}', ++open);
        if (close == text.npos) return;
        AddGroup(text.substr(open, close - open));
        open = close;
    }
}

void AttributeList::AddGroup(std::string_view text) {
    std::size_t nameEnd = std::min(text.find(','), text.size());
    Group group{.layer = std::string(text.substr(0, nameEnd)), .record = {}, .fields = {}};
    if (nameEnd < text.size()) group.record.fieldList = text.substr(nameEnd + 1);
    const std::string& list = group.record.fieldList;
    group.record.width = static_cast<int>(
        std::clamp<std::int64_t>(util::IntegerOf(util::GetCommaField(0, list)), 0, mostWidth));
    for (std::size_t comma = list.find(','); comma != list.npos;) {
        std::size_t next = list.find(',', comma + 1);
        group.fields.push_back(list.substr(comma + 1, next == list.npos ? next : next - comma - 1));
        comma = next;
    }
    groups_.push_back(std::move(group));
}

void AttributeList::Add(std::string_view layer, int width, std::span<const std::string> fields) {
    std::string text = std::string(layer) + ',' + std::to_string(width);
    for (const std::string& field : fields) text += ',' + field;
    AddGroup(text);
}

const AttributeList::Group* AttributeList::Find(std::string_view layer) const {
    auto group = std::ranges::find_if(
        groups_, [&](const Group& each) { return platform::SameNoCase(each.layer, layer); });
    return group == groups_.end() ? nullptr : &*group;
}

}  // namespace vexlator::background
