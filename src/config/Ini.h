// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/NoCaseMap.h"

#include <string>
#include <string_view>
#include <vector>

/// INI files by the rules of the Windows private-profile functions: `[section]` lines, `key=value` lines,
/// `;` comment lines; sections and keys without regard to letter case; blanks around names and values do not
/// count; one pair of quotes (double or single) that encloses the whole value is dropped on reading.
/// Text is taken as UTF-8 when the file is valid UTF-8, else as Windows-1252.
namespace vexlator::config {

constexpr std::size_t longestIniValue = 2047;  ///< characters; longer values are cut on reading

/// The value, "" when the key, the section or the file is missing.
std::string ReadIniFile(std::string_view file, std::string_view section, std::string_view key);

/// Writes or replaces one value; creates section and file as needed. Every other byte of the file stays, line
/// ends included. Atomic, and safe against other programs that write the same file at the same time.
/// @throws platform::ReadError, platform::WriteError when the file cannot be written
void WriteIniFile(std::string_view file, std::string_view section, std::string_view key,
                  std::string_view value);

/// The two operations on a file's text, for tests and for callers that hold the bytes.
std::string IniValue(std::string_view text, std::string_view section, std::string_view key);
std::string WithIniValue(std::string_view text, std::string_view section, std::string_view key,
                         std::string_view value);

/// A key line of a file. Good as long as the text that it was found in.
struct IniEntry {
    std::string_view section, key, value;
    bool counts = false;  ///< false where an earlier section, or an earlier key in it, has the same name
};

/// A file's text, read once for all of its values.
class IniText {
public:
    explicit IniText(std::string_view text);
    IniText(const IniText&) = delete;
    IniText& operator=(const IniText&) = delete;

    /// What IniValue() gives, names in UTF-8; good as long as this object. A hash look-up.
    std::string_view Value(std::string_view section, std::string_view key) const;
    /// Every key line, in order.
    std::vector<IniEntry> Entries() const;

private:
    using Keys = util::NoCaseMap<std::string_view>;
    std::string text_;
    util::NoCaseMap<Keys> sections_;
};

/// Adds lines to the text of a new file: that of a section, and that of a key whose name holds letters and
/// digits only, with a value that reads back the same.
void AppendIniSection(std::string& text, std::string_view section);
void AppendIniValue(std::string& text, std::string_view key, std::string_view value);

}  // namespace vexlator::config
