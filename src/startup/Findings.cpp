// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Findings.h"

#include "config/Ini.h"
#include "platform/CodePages.h"
#include "platform/Paths.h"
#include "startup/Similar.h"

#include <algorithm>
#include <cctype>

namespace vexlator::startup {

namespace {

using config::IniEntry;
using config::Key;

/// Letters and digits alone, in capitals.
std::string Plain(std::string_view name) {
    std::string plain = platform::UpperAscii(name);
    std::erase_if(plain, [](unsigned char c) { return std::isalnum(c) == 0; });
    return plain;
}

bool LooksLike(std::string_view name, std::string_view meant) {
    constexpr std::size_t fewest = 3;  // letters; shorter names all look alike
    std::string word = Plain(name), other = Plain(meant);
    return word == other || (std::max(word.size(), other.size()) >= fewest && IsOneSlipFrom(word, other));
}

bool IsMeantBy(const Key& key, const IniEntry& entry) {
    return LooksLike(entry.section, key.section) && (key.name.empty() || LooksLike(entry.key, key.name));
}

/// The right key in a wrong section. Short names stand in many sections.
bool IsMisplaced(const Key& key, const IniEntry& entry) {
    constexpr std::size_t fewest = 4;
    return entry.key.size() >= fewest && platform::SameNoCase(entry.key, key.name);
}

std::string NameOf(std::string_view section, std::string_view key) {
    return "[" + std::string(section) + "]" + (key.empty() ? "" : " " + std::string(key));
}

/// "" when the key looks like none that is read.
std::string KeyNotRead(const IniEntry& entry, const config::KeyList& keys) {
    auto meant = std::ranges::find_if(keys, [&](const Key& key) { return IsMeantBy(key, entry); });
    if (meant == keys.end())
        meant = std::ranges::find_if(keys, [&](const Key& key) { return IsMisplaced(key, entry); });
    if (meant == keys.end()) return "";
    return NameOf(entry.section, entry.key) + ": nothing reads this; did you mean " +
           NameOf(meant->section, meant->name) + "?";
}

auto FindKey(const config::KeyList& keys, const IniEntry& entry) {
    return std::ranges::find_if(keys, [&](const Key& each) {
        return platform::SameNoCase(each.section, entry.section) &&
               (each.name.empty() || platform::SameNoCase(each.name, entry.key));
    });
}

std::string Finding(const IniEntry& entry, const config::KeyList& keys) {
    constexpr std::size_t longest = 60;  // bytes of a value
    auto key = FindKey(keys, entry);
    if (key == keys.end()) return KeyNotRead(entry, keys);
    std::string name = NameOf(entry.section, entry.key);
    if (!entry.counts)
        return name + ": does not count, because its section or the key stands further up already";
    if (key->type == Key::Type::Folder) return "";
    std::string problem = key->Problem(entry.value);
    if (problem.empty()) return "";
    return name + "=" + std::string(platform::CutUtf8(entry.value, longest)) + ": " + problem;
}

}  // namespace

std::vector<std::string> FindingsOf(std::string_view iniText, const config::KeyList& keys) {
    config::IniText ini(iniText);
    std::vector<std::string> findings;
    for (const IniEntry& entry : ini.Entries())
        if (std::string finding = Finding(entry, keys); !finding.empty()) findings.push_back(finding);
    return findings;
}

std::string WhyNotSet(const config::IniOverride& setting, const config::KeyList& keys) {
    IniEntry entry{setting.section, setting.key, setting.value, true};
    std::string finding = Finding(entry, keys);
    if (!finding.empty() || FindKey(keys, entry) != keys.end()) return finding;
    return NameOf(setting.section, setting.key) + ": nothing reads this; vexlator --settings lists every key";
}

}  // namespace vexlator::startup
