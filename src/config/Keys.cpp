// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Keys.h"

#include "platform/Files.h"
#include "util/Numbers.h"
#include "util/WholeNumber.h"

#include <algorithm>

namespace vexlator::config {

namespace {

std::string RangeOf(const Key& key) {
    return std::to_string(key.least) + " to " + std::to_string(key.most);
}

bool IsInRange(const Key& key, std::string_view value) {
    return util::IsWhollyNumber(value) && util::IntegerOf(value) >= key.least &&
           util::IntegerOf(value) <= key.most;
}

}  // namespace

std::string Key::Explanation() const {
    bool isFlag = type == Type::Flag || type == Type::Switch;
    std::string text = (isFlag ? "Flag: " : "") + std::string(meaning);
    if (type == Type::Number) text += ": " + RangeOf(*this);
    text += ".";
    if (!fallback.empty()) text.append(" Default: ").append(fallback).append(".");
    return text;
}

std::string Key::Problem(std::string_view value) const {
    if (value.empty()) return "";
    switch (type) {
        case Type::Text:
            return "";
        case Type::Number:
            if (IsInRange(*this, value)) return "";
            return "not a number from " + RangeOf(*this) + "; " + std::to_string(NumberOf(*this, value)) +
                   " is used";
        case Type::Folder:
            return platform::FolderExists(value) ? "" : "there is no such folder";
        case Type::File:
            if (platform::FileExists(value)) return "";
            return "there is no such file; the default is used: " + std::string(fallback);
        default:
            if (value == "0" || value == "1") return "";
            return std::string("neither 0 nor 1; it means ") + (IsOn(*this, value) ? "on" : "off");
    }
}

bool IsOn(const Key& key, std::string_view value) {
    return key.type == Key::Type::Switch ? value != "0" : value == "1";
}

int NumberOf(const Key& key, std::string_view value) {
    return static_cast<int>(std::clamp(util::IntegerOf(value), key.least, key.most));
}

}  // namespace vexlator::config
