// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Findings.h"

#include "config/Ini.h"
#include "platform/CodePages.h"
#include "platform/Paths.h"
#include "startup/Similar.h"

#include <algorithm>
#include <cctype>
#include <optional>

namespace vexlator::startup {

namespace {

using config::IniEntry;
using config::Key;

/// Letters and digits only, in capitals.
std::string Plain(std::string_view name) {
    std::string plain = platform::UpperAscii(name);
    std::erase_if(plain, [](unsigned char c) { return std::isalnum(c) == 0; });
    return plain;
}

bool LooksLike(std::string_view name, std::string_view meant) {
    constexpr std::size_t fewest = 3;  // letters; shorter names all look similar
    std::string word = Plain(name), other = Plain(meant);
    return word == other || (std::max(word.size(), other.size()) >= fewest && IsOneSlipFrom(word, other));
}

bool IsMeantBy(const Key& key, const IniEntry& entry) {
    return LooksLike(entry.section, key.section) && (key.name.empty() || LooksLike(entry.key, key.name));
}

/// The same key in another section. Short names occur in many sections.
bool IsMisplaced(const Key& key, const IniEntry& entry) {
    constexpr std::size_t fewest = 4;
    return entry.key.size() >= fewest && platform::SameNoCase(entry.key, key.name);
}

std::string NameOf(std::string_view section, std::string_view key) {
    return "[" + std::string(section) + "]" + (key.empty() ? "" : " " + std::string(key));
}

/// Nothing if the key is similar to no known key.
std::optional<Finding> KeyNotRead(const IniEntry& entry, const config::KeyList& keys) {
    auto meant = std::ranges::find_if(keys, [&](const Key& key) { return IsMeantBy(key, entry); });
    if (meant == keys.end())
        meant = std::ranges::find_if(keys, [&](const Key& key) { return IsMisplaced(key, entry); });
    if (meant == keys.end()) return std::nullopt;
    std::string name = NameOf(entry.section, entry.key), other = NameOf(meant->section, meant->name);
    return Finding{name + ": nothing reads this; did you mean " + other + "?",
                   "Give " + other + " the value, and remove the line " + name, std::string(meant->section),
                   std::string(meant->name)};
}

std::string MendOf(const Key& key) {
    switch (key.type) {
        case Key::Type::Number:
            return "Give it a number from " + std::to_string(key.least) + " to " + std::to_string(key.most);
        case Key::Type::File:
            return "Choose an existing file, or clear the value to use the default";
        default:
            return "Give it 1 for on or 0 for off";
    }
}

auto FindKey(const config::KeyList& keys, const IniEntry& entry) {
    return std::ranges::find_if(keys, [&](const Key& each) {
        return platform::SameNoCase(each.section, entry.section) &&
               (each.name.empty() || platform::SameNoCase(each.name, entry.key));
    });
}

std::optional<Finding> FindingOf(const IniEntry& entry, const config::KeyList& keys) {
    constexpr std::size_t longest = 60;  // length of a value, in bytes
    auto key = FindKey(keys, entry);
    if (key == keys.end()) return KeyNotRead(entry, keys);
    std::string name = NameOf(entry.section, entry.key);
    std::string section(entry.section), keyName(entry.key);
    if (!entry.counts)
        return Finding{name + ": ignored, because this section or key is already further up in the file",
                       "Remove the lower line from the file", section, keyName};
    if (key->type == Key::Type::Folder) return std::nullopt;
    std::string problem = key->Problem(entry.value);
    if (problem.empty()) return std::nullopt;
    return Finding{name + "=" + std::string(platform::CutUtf8(entry.value, longest)) + ": " + problem,
                   MendOf(*key), section, keyName};
}

}  // namespace

std::vector<Finding> FindingsOf(std::string_view iniText, const config::KeyList& keys) {
    config::IniText ini(iniText);
    std::vector<Finding> findings;
    for (const IniEntry& entry : ini.Entries())
        if (std::optional<Finding> finding = FindingOf(entry, keys)) findings.push_back(*std::move(finding));
    return findings;
}

std::string WhyNotSet(const config::IniOverride& setting, const config::KeyList& keys) {
    IniEntry entry{setting.section, setting.key, setting.value, true};
    if (std::optional<Finding> finding = FindingOf(entry, keys)) return finding->text;
    if (FindKey(keys, entry) != keys.end()) return "";
    return NameOf(setting.section, setting.key) + ": nothing reads this; vexlator --settings lists every key";
}

}  // namespace vexlator::startup
