// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/InstallationFiles.h"
#include "startup/Keys.h"
#include "util/Text.h"

#include <cctype>

namespace vexlator::startup {

namespace {

constexpr std::string_view head = R"(; Settings of this Vexlator installation.
; A flag is on when its value is exactly 1. An empty or missing key has the default in the comment above it.
; Lines that begin with ; are comments.
)";

/// As comment lines, broken at blanks.
std::string Comment(std::string text) {
    constexpr std::size_t longest = 110;
    text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
    std::string lines;
    for (std::string_view rest = text; !rest.empty();) {
        std::size_t end = rest.size() <= longest ? rest.size() : rest.rfind(' ', longest);
        if (end == rest.npos) end = rest.size();
        lines.append("; ").append(rest.substr(0, end)).append("\n");
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return lines;
}

}  // namespace

std::string DefaultIni(std::string_view nativeFolder) {
    std::string text(head);
    std::string_view section;
    for (const config::Key& key : AllKeys()) {
        if (key.section != section) text.append("\n[").append(section = key.section).append("]\n");
        text += Comment(key.Explanation());
        if (!key.name.empty()) text.append(key.name).append("=").append(key.initial).append("\n");
    }
    return util::ReplaceAll(text, "@FOLDER@", nativeFolder);
}

}  // namespace vexlator::startup
