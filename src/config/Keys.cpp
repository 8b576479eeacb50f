// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Keys.h"

#include "util/Numbers.h"
#include "util/WholeNumber.h"

#include <algorithm>

namespace vexlator::config {

namespace {

std::string RangeOf(const Key& key) {
    return std::to_string(key.least) + " to " + std::to_string(key.most);
}

}  // namespace

std::string Key::Explanation() const {
    bool isFlag = type == Type::Flag || type == Type::Switch;
    std::string text = (isFlag ? "Flag: " : "") + std::string(meaning);
    if (type == Type::Number) text += ", " + RangeOf(*this);
    text += ".";
    if (!fallback.empty()) text.append(" Default: ").append(fallback).append(".");
    return text;
}

std::string Key::Problem(std::string_view value) const {
    if (value.empty() || type == Type::Text) return "";
    if (type == Type::Number) {
        bool isInRange =
            util::IsWhollyNumber(value) && util::IntegerOf(value) >= least && util::IntegerOf(value) <= most;
        return isInRange ? ""
                         : "no number from " + RangeOf(*this) + "; " +
                               std::to_string(NumberOf(*this, value)) + " counts";
    }
    if (value == "0" || value == "1") return "";
    return std::string("neither 0 nor 1; it counts as ") + (IsOn(*this, value) ? "on" : "off");
}

bool IsOn(const Key& key, std::string_view value) {
    return key.type == Key::Type::Switch ? value != "0" : value == "1";
}

int NumberOf(const Key& key, std::string_view value) {
    return static_cast<int>(std::clamp(util::IntegerOf(value), key.least, key.most));
}

}  // namespace vexlator::config
