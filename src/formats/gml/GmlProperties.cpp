// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/gml/GmlProperties.h"

#include "formats/gml/GmlElements.h"
#include "util/Text.h"

#include <algorithm>
#include <utility>

namespace vexlator::formats {

namespace {

std::string_view Attribute(XmlAttributes attributes, std::string_view name) {
    for (const XmlAttribute& attribute : attributes)
        if (attribute.name == name) return attribute.value;
    return {};
}

}  // namespace

void GmlProperties::Begin(std::string_view name, XmlAttributes attributes) {
    bytes_ += name.size() + sizeof(GmlProperty);
    feature_.properties.push_back({std::string(LocalName(name)), ""});
    reference_ = Attribute(attributes, "xlink:href");
    isOpen_ = true;
}

void GmlProperties::Append(std::string_view text) {
    bytes_ += text.size();
    feature_.properties.back().value += text;
}

void GmlProperties::Leave() {
    if (!std::exchange(isOpen_, false)) return;
    if (keepsParents_)
        feature_.properties.back().value.clear();
    else
        feature_.properties.pop_back();
}

void GmlProperties::End() {
    if (!std::exchange(isOpen_, false) || keepsParents_) return;
    std::string& value = feature_.properties.back().value;
    std::string_view trimmed = util::Trim(value, util::lineBlanks);
    if (trimmed.empty()) trimmed = reference_;
    if (trimmed.size() != value.size()) value = std::string(trimmed);
}

void GmlProperties::Forget() {
    feature_.properties.clear();
    bytes_ = 0;
    isOpen_ = false;
}

void GmlProperties::KeepFirst(std::size_t count, std::size_t bytes) {
    feature_.properties.resize(std::min(count, Count()));
    bytes_ = bytes;
}

void GmlProperties::DropFirst(std::size_t count, std::size_t bytes) {
    auto begin = feature_.properties.begin();
    feature_.properties.erase(begin, begin + static_cast<std::ptrdiff_t>(std::min(count, Count())));
    bytes_ -= std::min(bytes, bytes_);
}

}  // namespace vexlator::formats
