// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/CommandLine.h"

#include "platform/AsciiCase.h"
#include "platform/Paths.h"
#include "util/Paths.h"
#include "util/Text.h"
#include "util/WholeNumber.h"

namespace vexlator::startup {

namespace {

constexpr std::string_view quietSwitch = "-QUIET";
constexpr std::string_view boxSwitch = "?BOX";

/// The text from a position on; "" if it is shorter.
std::string_view From(std::string_view text, std::size_t position) {
    return position < text.size() ? text.substr(position) : std::string_view();
}

GoOption ParseGoOption(std::string_view item) {
    return {std::string(util::GetField(0, item, "=")), std::string(util::GetField(1, item, "="))};
}

/// A closed extent block in a text: its position, and the text of its values.
struct ExtentBlock {
    std::size_t begin, size;
    std::string_view values;
};

std::optional<ExtentBlock> FindExtent(std::string_view text) {
    std::size_t position = util::InStrNoCase(text, boxSwitch);
    if (position == 0) return std::nullopt;
    std::size_t begin = position - 1;
    std::size_t values = begin + boxSwitch.size();
    std::size_t end = text.find('?', values);
    if (end == std::string_view::npos) return std::nullopt;
    std::size_t length = end > values ? end - values - 1 : 0;
    return ExtentBlock{begin, end + 1 - begin, text.substr(values, length)};
}

config::ImportExtentBox ParseExtent(std::string_view text) {
    return {util::GetCommaNumber(0, text), util::GetCommaNumber(1, text), util::GetCommaNumber(2, text),
            util::GetCommaNumber(3, text)};
}

bool IsExtent(std::string_view values) {
    if (util::CountOf(values, ",") != 3) return false;
    for (std::size_t i = 0; i < 4; ++i)
        if (!util::IsWhollyNumber(util::GetCommaField(i, values))) return false;
    config::ImportExtentBox extent = ParseExtent(values);
    return extent.minX <= extent.maxX && extent.minY <= extent.maxY;
}

}  // namespace

bool IsGo(std::string_view text) {
    return text.starts_with("GO");
}

std::vector<GoOption> GoOptions(std::string_view goCommand) {
    std::vector<GoOption> options;
    std::string_view rest = From(goCommand, 3);
    while (!rest.empty()) {
        std::size_t comma = rest.find(',');
        GoOption option = ParseGoOption(util::Trim(rest.substr(0, comma)));
        if (!option.key.empty()) options.push_back(std::move(option));
        rest = comma == std::string_view::npos ? std::string_view() : rest.substr(comma + 1);
    }
    return options;
}

bool TakeYes(std::string& text) {
    const std::string before = std::string(yesOption) + " ";
    const std::string behind = " " + std::string(yesOption);
    if (text.starts_with(before))
        text.erase(0, before.size());
    else if (text.ends_with(behind))
        text.erase(text.size() - behind.size());
    else
        return false;
    return true;
}

bool TakeQuiet(std::string& text) {
    bool quiet = util::InStrNoCase(text, quietSwitch) > 0;
    text = util::ReplaceAll(text, quietSwitch, "");
    return quiet;
}

std::optional<config::ImportExtentBox> TakeExtent(std::string& text) {
    std::optional<ExtentBlock> block = FindExtent(text);
    if (!block) return std::nullopt;
    config::ImportExtentBox extent = ParseExtent(block->values);
    text.erase(block->begin, block->size);
    text = std::string(util::Trim(text));
    return extent;
}

bool ExtentIsWrong(std::string_view text) {
    if (util::InStrNoCase(text, boxSwitch) == 0) return false;
    std::optional<ExtentBlock> block = FindExtent(text);
    return !block || !IsExtent(block->values);
}

std::string_view WithoutQuotes(std::string_view text) {
    if (!text.starts_with('"')) return text;
    return text.size() > 1 ? text.substr(1, text.size() - 2) : std::string_view();
}

Mode ModeOf(std::string_view text) {
    if (text.starts_with(importWord)) return Mode::Import;
    return text.empty() || text.starts_with("SELECT") ? Mode::Select : Mode::Export;
}

std::string_view ImportArgument(std::string_view text) {
    // Switches before the path leave blanks behind.
    return util::Trim(From(text, importWord.size() + 1));
}

ImportCommand ParseImport(std::string_view text) {
    std::string_view argument = ImportArgument(text);
    std::size_t bar = argument.find('|');
    std::string_view first = argument.substr(0, bar);
    ImportCommand command;
    command.code = platform::UpperAscii(util::ExtensionOf(first));
    command.sourcePath = platform::AbsolutePath(first);
    command.sourceFolder = util::FolderOf(command.sourcePath);
    if (bar != std::string_view::npos) command.fileList = argument.substr(bar);
    return command;
}

ExportCommand ParseExport(std::string_view text) {
    std::string path = platform::AbsolutePath(text);
    std::string fileName = util::FileNameOf(path);
    if (fileName.find('.') == std::string::npos) return {"", path, path};
    return {platform::UpperAscii(util::ExtensionOf(fileName)), util::ChangeExtension(path, "VDF"),
            util::ChangeExtension(path, "")};
}

}  // namespace vexlator::startup
