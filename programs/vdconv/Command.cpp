// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "vdconv/Command.h"

#include "gis/GisFormat.h"
#include "platform/AsciiCase.h"
#include "platform/Paths.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace vexlator::vdconv {

namespace {

std::string CodeOf(std::string_view path) {
    return platform::UpperAscii(util::ExtensionOf(path));
}

config::IniOverride SettingOf(const std::string& text) {
    std::size_t equals = text.find('='), dot = text.find('.');
    if (dot == std::string::npos || equals == std::string::npos || dot > equals)
        throw WrongUse("--set " + text + ": not SECTION.KEY=VALUE");
    return {text.substr(0, dot), text.substr(dot + 1, equals - dot - 1), text.substr(equals + 1)};
}

/// Takes the options off. Returns the number of arguments that they take.
std::size_t TakeOptions(const std::vector<std::string>& arguments, Command& command) {
    std::size_t i = 0;
    for (; i < arguments.size() && arguments[i].starts_with("--"); i += 2) {
        if (i + 1 == arguments.size()) throw WrongUse(arguments[i] + ": has no value behind it");
        const std::string& value = arguments[i + 1];
        if (arguments[i] == "--report")
            command.report = value;
        else if (arguments[i] == "--set")
            command.settings.push_back(SettingOf(value));
        else
            throw WrongUse(arguments[i] + ": not understood");
    }
    return i;
}

/// The files of "? SOURCE ? TARGET ? 500 ? ...": of what follows them the version is known, and the size of a
/// picture means nothing here.
std::vector<std::string> FilesBetweenMarks(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words) line.append(line.empty() ? "" : " ").append(word);
    std::vector<std::string> files;
    for (std::size_t i = 1; files.size() < 2 && i <= util::CountOf(line, "?"); ++i)
        files.emplace_back(util::Trim(util::Trim(util::GetField(i, line, "?")), "\""));
    return files;
}

bool HasMarks(const std::vector<std::string>& words) {
    return !words.empty() && (words.front() == "?" || words.front().starts_with("? "));
}

void TakeImport(std::vector<std::string> files, Command& command) {
    command.isImport = true;
    command.drawing = platform::AbsolutePath(files.back());
    files.pop_back();
    command.code = CodeOf(files.front());
    for (const std::string& file : files) {
        if (CodeOf(file) != command.code) throw WrongUse(file + ": another format than " + files.front());
        command.sources.push_back(platform::AbsolutePath(file));
    }
}

void TakeExport(const std::vector<std::string>& files, Command& command) {
    if (files.size() != 2) throw WrongUse("one drawing is exported at a time");
    command.drawing = platform::AbsolutePath(files.front());
    std::string target = platform::AbsolutePath(files.back());
    command.code = CodeOf(target);
    const gis::GisFormat* format = gis::FindGisFormat(command.code);
    bool isFolder = format && !format->layersShareFile;
    command.folder = isFolder ? util::ChangeExtension(target, "") : util::FolderOf(target);
    command.name = util::BaseNameOf(target);
}

/// What vexlator passes: import CODE DRAWING SOURCE..., or export CODE DRAWING FOLDER NAME.
void TakeWorkOrder(const std::vector<std::string>& words, Command& command) {
    constexpr std::size_t fewestOfImport = 4, ofExport = 5;
    bool isImport = words.front() == "import" && words.size() >= fewestOfImport;
    if (!isImport && (words.front() != "export" || words.size() != ofExport))
        throw WrongUse(words.front() + ": not understood");
    command.isImport = isImport;
    command.code = words[1];
    command.drawing = words[2];
    if (isImport) {
        command.sources.assign(words.begin() + 3, words.end());
    } else {
        command.folder = words[3];
        command.name = words[4];
    }
}

}  // namespace

Command ParseCommand(const std::vector<std::string>& arguments) {
    Command command;
    std::vector<std::string> words(
        std::next(arguments.begin(), static_cast<std::ptrdiff_t>(TakeOptions(arguments, command))),
        arguments.end());
    if (!command.report.empty() && !words.empty()) {
        TakeWorkOrder(words, command);
        return command;
    }
    std::vector<std::string> files = HasMarks(words) ? FilesBetweenMarks(words) : words;
    if (files.size() < 2 || std::ranges::find(files, "") != files.end())
        throw WrongUse("a source and a target are needed");
    if (CodeOf(files.back()) == "VDF")
        TakeImport(files, command);
    else if (CodeOf(files.front()) == "VDF")
        TakeExport(files, command);
    else
        throw WrongUse("neither " + files.front() + " nor " + files.back() + " is a drawing (.VDF)");
    return command;
}

}  // namespace vexlator::vdconv
