// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Ini.h"

#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "platform/Files.h"
#include "util/Files.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::config {

namespace {

constexpr std::string_view blanks = " \t";

/// The name of a section or key as callers give it, in UTF-8.
std::string Name(std::string_view name) {
    return std::string(util::Trim(platform::AsUtf8(name), blanks));
}

bool IsQuoted(std::string_view value) {
    return value.size() >= 2 && (value[0] == '"' || value[0] == '\'') && value.back() == value[0];
}

// --- Reading. Names and values here are views into the file's text.

/// The name in a "[name]" line.
bool IsSectionLine(std::string_view line, std::string_view& name) {
    line = util::Trim(line, blanks);
    std::size_t end = line.find(']');
    if (!line.starts_with('[') || end == std::string_view::npos) return false;
    name = util::Trim(line.substr(1, end - 1), blanks);
    return true;
}

bool IsKeyLine(std::string_view line, std::string_view& name, std::string_view& value) {
    std::size_t equals = line.find('=');
    name = util::Trim(line.substr(0, equals), blanks);
    if (equals == std::string_view::npos || name.empty() || name[0] == ';') return false;
    value = util::Trim(line.substr(equals + 1), blanks);
    return true;
}

/// Where a text has a section and a key; also, where a new key belongs.
struct Place {
    bool hasSection = false, hasKey = false;
    std::string_view value;  ///< without the blanks around it
    /// Just after the section's last key line; for a section without keys, after the section line.
    std::size_t afterLastKey = 0;
};

/// The first section with the name, and the first key with the name in it. Later ones are ignored. Names are
/// in the encoding of the text.
Place Find(std::string_view text, std::string_view section, std::string_view key) {
    Place place;
    util::LineReader lines(text);
    std::string_view name, value;
    while (!lines.AtEnd() && !place.hasKey) {
        std::string_view line = lines.ReadTextLine();
        bool isSection = IsSectionLine(line, name);
        if (isSection && place.hasSection) break;
        if (isSection) place.hasSection = platform::SameNoCase(name, section);
        bool isKey = !isSection && place.hasSection && IsKeyLine(line, name, value);
        if (isKey && platform::SameNoCase(name, key)) {
            place.hasKey = true;
            place.value = value;
        }
        if (isKey || (isSection && place.hasSection)) place.afterLastKey = lines.Position();
    }
    return place;
}

/// The meaning of a stored value.
std::string_view PlainValue(std::string_view value) {
    value = value.substr(0, value.find('\0'));
    if (IsQuoted(value)) value = value.substr(1, value.size() - 2);
    return platform::FirstCharacters(value, longestIniValue);
}

// --- Writing

bool CanBeSection(std::string_view name) {
    return name.find_first_of(std::string_view("]\r\n\0", 4)) == std::string_view::npos;
}

bool CanBeKey(std::string_view name) {
    return !name.empty() && name[0] != ';' && name[0] != '[' &&
           name.find_first_of(std::string_view("=\r\n\0", 4)) == std::string_view::npos;
}

/// The value as it is stored in a file: it reads back the same and is one line.
std::string StoredValue(std::string_view value) {
    std::string stored = platform::AsUtf8(value);
    std::replace_if(
        stored.begin(), stored.end(), [](char c) { return c == '\r' || c == '\n' || c == '\0'; }, ' ');
    bool needsQuotes = IsQuoted(stored) || util::Trim(stored, blanks).size() != stored.size();
    return needsQuotes ? '"' + stored + '"' : stored;
}

std::string_view LineEndOf(std::string_view text) {
    std::size_t end = text.find_first_of("\r\n");
    if (end == std::string_view::npos || text.substr(end).starts_with("\r\n")) return "\r\n";
    return text.substr(end, 1);
}

/// Inserts whole lines at the end of a line. Adds a line end to a line without one.
std::string WithLines(std::string_view text, std::size_t at, std::string lines) {
    bool lineIsOpen = at > 0 && text[at - 1] != '\n' && text[at - 1] != '\r';
    if (lineIsOpen) lines.insert(0, LineEndOf(text));
    return std::string(text.substr(0, at)).append(lines).append(text.substr(at));
}

/// All texts are in one encoding.
std::string Edited(std::string_view text, std::string_view section, std::string_view key,
                   std::string_view value) {
    Place place = Find(text, section, key);
    if (place.hasKey) {
        auto at = static_cast<std::size_t>(place.value.data() - text.data());
        return std::string(text).replace(at, place.value.size(), value);
    }
    std::string end(LineEndOf(text));
    std::string line = std::string(key).append("=").append(value).append(end);
    if (place.hasSection) return WithLines(text, place.afterLastKey, std::move(line));
    return WithLines(text, text.size(), "[" + std::string(section) + "]" + end + line);
}

std::string EditedWindows1252(std::string_view text, std::string_view section, std::string_view key,
                              std::string_view value) {
    using platform::Windows1252FromUtf8;
    return Edited(text, Windows1252FromUtf8(section), Windows1252FromUtf8(key), Windows1252FromUtf8(value));
}

/// Keeps the encoding of the text if it can.
std::string Recoded(std::string_view text, const std::string& section, const std::string& key,
                    const std::string& value) {
    if (platform::IsUtf8(text)) return Edited(text, section, key, value);
    if (platform::FitsWindows1252(section + key + value)) {
        std::string edited = EditedWindows1252(text, section, key, value);
        // A text that happens to be valid UTF-8 now would be read as UTF-8.
        if (platform::IsAscii(edited) || !platform::IsUtf8(edited)) return edited;
    }
    return Edited(platform::Utf8FromWindows1252(text), section, key, value);
}

}  // namespace

std::string IniValue(std::string_view text, std::string_view section, std::string_view key) {
    std::string decoded = platform::DecodeText(text);
    return std::string(PlainValue(Find(decoded, Name(section), Name(key)).value));
}

std::string WithIniValue(std::string_view text, std::string_view section, std::string_view key,
                         std::string_view value) {
    std::string sectionName = Name(section), keyName = Name(key);
    if (!CanBeSection(sectionName) || !CanBeKey(keyName)) return std::string(text);
    std::string_view bare = platform::WithoutByteOrderMark(text);
    std::string mark(text.substr(0, text.size() - bare.size()));
    return mark + Recoded(bare, sectionName, keyName, StoredValue(value));
}

std::string ReadIniFile(std::string_view file, std::string_view section, std::string_view key) {
    try {
        return IniValue(platform::ReadWholeFile(file), section, key);
    } catch (const platform::ReadError&) {
        return "";
    }
}

void WriteIniFile(std::string_view file, std::string_view section, std::string_view key,
                  std::string_view value) {
    platform::FileLock lock(file);
    std::string text = platform::FileExists(file) ? platform::ReadWholeFile(file) : "";
    std::string edited = WithIniValue(text, section, key, value);
    if (edited != text) platform::ReplaceFile(file, edited);
}

IniText::IniText(std::string_view text) : text_(platform::DecodeText(text)) {
    Keys* keys = nullptr;  // null in a section with the name of an earlier one, which is ignored
    std::string_view name, value;
    for (util::LineReader lines(text_); !lines.AtEnd();) {
        std::string_view line = lines.ReadTextLine();
        if (IsSectionLine(line, name)) {
            auto [section, isNew] = sections_.try_emplace(name);
            keys = isNew ? &section->second : nullptr;
        } else if (keys && IsKeyLine(line, name, value)) {
            keys->try_emplace(name, value);
        }
    }
}

std::string_view IniText::Value(std::string_view section, std::string_view key) const {
    auto keys = sections_.find(util::Trim(section, blanks));
    if (keys == sections_.end()) return {};
    auto found = keys->second.find(util::Trim(key, blanks));
    return found == keys->second.end() ? std::string_view() : PlainValue(found->second);
}

std::vector<IniEntry> IniText::Entries() const {
    std::vector<IniEntry> entries;
    std::string_view section, name, value;
    for (util::LineReader lines(text_); !lines.AtEnd();) {
        std::string_view line = lines.ReadTextLine();
        if (IsSectionLine(line, section) || !IsKeyLine(line, name, value)) continue;
        value = PlainValue(value);
        entries.push_back({section, name, value, Value(section, name).data() == value.data()});
    }
    return entries;
}

void AppendIniSection(std::string& text, std::string_view section) {
    text.append("[").append(section).append("]\r\n");
}

void AppendIniValue(std::string& text, std::string_view key, std::string_view value) {
    text.append(key).append("=").append(StoredValue(value)).append("\r\n");
}

}  // namespace vexlator::config
