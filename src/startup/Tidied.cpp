// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Tidied.h"

#include "startup/CommandLine.h"
#include "startup/NamedFiles.h"
#include "util/Text.h"

#include <utility>

namespace vexlator::startup {

namespace {

/// The typographic quotes that text processors and web pages make of a straight one.
constexpr std::string_view doubleQuotes[] = {"“", "”", "„", "‟", "«", "»"};
constexpr std::pair<std::string_view, std::string_view> singleQuotes[] = {{"'", "'"}, {"‘", "’"}, {"‚", "‘"}};

/// Removes a word between blanks or the ends of the text.
void EraseWord(std::string& text, std::string_view word) {
    std::string padded = " " + text + " ";
    const std::string wanted = " " + std::string(word) + " ";
    while (std::size_t position = util::InStrNoCase(padded, wanted))
        padded.replace(position - 1, wanted.size(), " ");
    text = util::Trim(padded);
}

/// The rest of the switch: it was removed without its first "-" if that was "--QUIET".
void EraseQuiet(std::string& text) {
    for (std::string_view word : {"-quiet", "--quiet"}) EraseWord(text, word);
    if (text.starts_with("- ")) text.erase(0, 2);
    if (text.ends_with(" -")) text.erase(text.size() - 2);
}

/// The last character is removed with a quote at the start, whatever it is. This rule is meant for a blank.
bool LosesMoreThanQuotes(std::string_view text) {
    return text.starts_with('"') && !text.ends_with('"') && !text.ends_with(' ');
}

}  // namespace

std::string_view WithoutSingleQuotes(std::string_view text) {
    for (auto [open, close] : singleQuotes)
        if (text.size() > open.size() + close.size() && text.starts_with(open) && text.ends_with(close))
            return text.substr(open.size(), text.size() - open.size() - close.size());
    return text;
}

std::string Tidied(const Conversions& conversions, std::string_view text) {
    std::string tidied(util::Trim(WithoutQuotes(text)));
    if (NamedFiles(conversions).IsCommand(tidied)) return tidied;
    if (LosesMoreThanQuotes(text)) tidied = text;
    std::erase_if(tidied, [](char c) { return c == '\r' || c == '\n'; });
    for (std::string_view quote : doubleQuotes) tidied = util::ReplaceAll(tidied, quote, "\"");
    if (util::CountOf(tidied, "\"") % 2 == 0) std::erase(tidied, '"');
    EraseQuiet(tidied);
    tidied = std::string(WithoutSingleQuotes(tidied));
    EraseQuiet(tidied);  // it may be inside the quotes
    return tidied;
}

}  // namespace vexlator::startup
