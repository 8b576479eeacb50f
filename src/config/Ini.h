// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/NoCaseMap.h"

#include <string>
#include <string_view>
#include <vector>

/// INI files by the rules of the Windows private-profile functions: `[section]` lines, `key=value` lines, `;`
/// comment lines. Letter case of sections and keys is ignored. Blanks around names and values are ignored.
/// Reading drops one pair of quotes (double or single) around the whole value. Text is read as UTF-8 if the
/// file is valid UTF-8, else as Windows-1252.
namespace vexlator::config {

constexpr std::size_t longestIniValue = 2047;  ///< characters; longer values are cut on reading

/// The value, "" when the key, the section or the file is missing.
std::string ReadIniFile(std::string_view file, std::string_view section, std::string_view key);

/// Writes or replaces one value; creates section and file as needed. All other bytes of the file stay, line
/// ends included. Atomic, and safe against other programs that write the same file at the same time.
/// @throws platform::ReadError, platform::WriteError when the file cannot be written
void WriteIniFile(std::string_view file, std::string_view section, std::string_view key,
                  std::string_view value);

/// The two operations on a file's text, for tests and for callers that have the bytes.
std::string IniValue(std::string_view text, std::string_view section, std::string_view key);
std::string WithIniValue(std::string_view text, std::string_view section, std::string_view key,
                         std::string_view value);

/// A key line of a file. It is valid as long as the text of the file.
struct IniEntry {
    std::string_view section, key, value;
    bool counts =
        false;  ///< false if an earlier section, or an earlier key in the section, has the same name
};

/// A file's text, read once for all of its values.
class IniText {
public:
    explicit IniText(std::string_view text);
    IniText(const IniText&) = delete;
    IniText& operator=(const IniText&) = delete;

    /// The same value as IniValue(), with names in UTF-8. It is valid as long as this object. A hash look-up.
    std::string_view Value(std::string_view section, std::string_view key) const;
    /// Every key line, in order.
    std::vector<IniEntry> Entries() const;

private:
    using Keys = util::NoCaseMap<std::string_view>;
    std::string text_;
    util::NoCaseMap<Keys> sections_;
};

/// Adds lines to the text of a new file: a section, and a key in it. The name of the key consists of letters
/// and digits. The value reads back the same.
void AppendIniSection(std::string& text, std::string_view section);
void AppendIniValue(std::string& text, std::string_view key, std::string_view value);

}  // namespace vexlator::config
