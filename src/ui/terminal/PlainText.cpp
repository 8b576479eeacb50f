// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "ui/terminal/PlainText.h"

#include "platform/CodePages.h"

namespace vexlator::ui {

namespace {

bool IsControl(char c) {
    return (c >= 0 && c < ' ') || c == '\x7F';
}

/// The control characters above ASCII, U+0080 to U+009F, are C2 80 to C2 9F.
bool IsHighControl(std::string_view rest) {
    return rest.size() > 1 && rest[0] == '\xC2' && static_cast<unsigned char>(rest[1]) < 0xA0;
}

std::string WithLineBreaksAs(std::string_view lineBreak, std::string_view text) {
    bool utf8 = platform::IsUtf8(text);
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c == '\r' && text.substr(i).starts_with("\r\n")) continue;
        if (c == '\n' || c == '\r') {
            result += lineBreak;
        } else if (c == '\t') {
            result += ' ';
        } else if (IsHighControl(text.substr(i))) {
            result += '?';
            ++i;
        } else {
            result += IsControl(c) || (c < 0 && !utf8) ? '?' : c;
        }
    }
    return result;
}

}  // namespace

std::string OneLine(std::string_view text) {
    return WithLineBreaksAs(" ", text);
}

std::string IndentedLines(std::string_view text) {
    while (text.ends_with('\n') || text.ends_with('\r')) text.remove_suffix(1);
    return WithLineBreaksAs("\n  ", text);
}

}  // namespace vexlator::ui
