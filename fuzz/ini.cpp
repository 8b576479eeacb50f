// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// The input is a section, a key and a value, each on a separate line, then the text of an INI file. A written
// value must read back, and every other key in the file must keep its value.
#include "config/Ini.h"

#include "platform/AsciiCase.h"
#include "platform/CodePages.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using namespace vexlator;

namespace {

constexpr std::size_t mostNames = 100;  // each is searched for in the whole text

std::string_view TakeLine(std::string_view& text) {
    std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

std::string WithoutBlanks(std::string text) {
    text.erase(0, std::min(text.find_first_not_of(" \t"), text.size()));
    text.erase(text.find_last_not_of(" \t") + 1);
    return text;
}

/// Possible positions of the names of sections and keys, read in the crudest way; other texts read as "".
std::set<std::pair<std::string, std::string>> NamesIn(std::string_view bytes) {
    std::set<std::pair<std::string, std::string>> names;
    std::string text = platform::DecodeText(bytes), section;
    std::replace(text.begin(), text.end(), '\r', '\n');
    for (std::string_view rest = text; !rest.empty() && names.size() < mostNames;) {
        std::string line = WithoutBlanks(std::string(TakeLine(rest)));
        if (line.starts_with('[')) section = WithoutBlanks(line.substr(1, line.find(']') - 1));
        names.emplace(section, WithoutBlanks(line.substr(0, line.find('='))));
    }
    return names;
}

void Require(bool condition) {
    if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view text(reinterpret_cast<const char*>(data), size);
    std::string section(TakeLine(text)), key(TakeLine(text)), value(TakeLine(text));
    std::string before = config::IniValue(text, section, key);
    std::string written = config::WithIniValue(text, section, key, value);
    bool refused = written == text && before != platform::AsUtf8(value);
    if (!refused) {
        std::string expected = platform::AsUtf8(value);
        std::replace_if(
            expected.begin(), expected.end(), [](char c) { return c == '\r' || c == '\0'; }, ' ');
        Require(config::IniValue(written, section, key) ==
                platform::FirstCharacters(expected, config::longestIniValue));
    }
    auto written_to = [&](const auto& name) {
        return platform::SameNoCase(name.first, WithoutBlanks(platform::AsUtf8(section))) &&
               platform::SameNoCase(name.second, WithoutBlanks(platform::AsUtf8(key)));
    };
    for (const auto& name : NamesIn(text))
        if (!written_to(name))
            Require(config::IniValue(text, name.first, name.second) ==
                    config::IniValue(written, name.first, name.second));
    config::IniText ini(text);
    std::vector<config::IniEntry> entries = ini.Entries();
    for (std::size_t i = 0; i < std::min(entries.size(), mostNames); ++i)
        Require(!entries[i].counts ||
                config::IniValue(text, entries[i].section, entries[i].key) == entries[i].value);
    return 0;
}
