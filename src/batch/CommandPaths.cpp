// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "batch/CommandPaths.h"

#include "database/FmoDefinition.h"
#include "import/SourceFiles.h"
#include "platform/AsciiCase.h"
#include "platform/Errors.h"
#include "platform/FileStamp.h"
#include "platform/Paths.h"
#include "platform/Process.h"
#include "startup/CommandLine.h"
#include "startup/Sources.h"
#include "startup/Tidied.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vexlator::batch {

namespace {

/// Companion files of a source, by its format code.
struct Companions {
    std::string_view code;
    std::array<std::string_view, 4> endings;
};
constexpr Companions companions[] = {
    {"SHP", {"dbf", "shx", "cpg", "prj"}},
    {"MID", {"mif"}},
    {"MIF", {"mid"}},
    {"TAB", {"dat", "map", "id", "ind"}},
};

void AddSource(std::vector<Source>& sources, const std::string& native) {
    constexpr int nanoseconds = 9;
    if (auto stamp = platform::StampOf(native))
        sources.push_back({native, stamp->size, TimeText(stamp->time, nanoseconds)});
}

/// The database whose table a definition names. A definition that cannot be read is for its import to tell.
void AddDatabase(std::vector<Source>& sources, const std::string& definition) {
    try {
        AddSource(sources, database::DatabaseFileOf(database::ReadFmoFile(definition)));
    } catch (const platform::ReadError&) {
    }
}

void AddWithCompanions(std::vector<Source>& sources, const std::string& path) {
    std::string native = platform::FindExisting(path);
    AddSource(sources, native);
    std::string code = platform::UpperAscii(util::ExtensionOf(native));
    if (code == "FMO") AddDatabase(sources, native);
    for (const Companions& known : companions) {
        if (known.code != code) continue;
        for (std::string_view ending : known.endings) {
            if (ending.empty()) continue;
            // Searches by exact name: a search in any letter case would list the folder for every missing
            // file.
            AddSource(sources, util::ChangeExtension(native, ending));
            AddSource(sources, util::ChangeExtension(native, platform::UpperAscii(ending)));
        }
    }
}

/// The path as a key: paths that differ only in letter case are the same file.
std::string DrawingKey(const std::string& folder, const std::string& name) {
    return platform::LowerAscii(platform::NativePath(util::JoinPath(folder, name)));
}

/// Where a command puts what it makes instead of its usual place, absolute; "" when it does not say.
std::string TargetFolder(const std::vector<std::string>& arguments) {
    std::string folder;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        if (arguments[i].starts_with("--to=")) folder = arguments[i].substr(5);
        if (arguments[i] == "--to" && i + 1 < arguments.size()) folder = arguments[++i];
    }
    return folder.empty() ? folder : platform::AbsolutePath(folder);
}

/// Where an option begins that stands behind a command, or the end of the text.
std::size_t FindOption(std::string_view command, std::string_view name) {
    for (std::size_t at = command.find(name); at != command.npos; at = command.find(name, at + 1)) {
        std::size_t end = at + name.size();
        bool ends = end == command.size() || command[end] == ' ' || command[end] == '=';
        if (at > 0 && command[at - 1] == ' ' && ends) return at;
    }
    return command.size();
}

CommandPaths PathsOfImport(const startup::Conversions& conversions, std::string_view text,
                           const std::string& target) {
    CommandPaths paths;
    std::vector<std::string> sources = startup::FindSources(conversions, startup::ImportArgument(text)).paths;
    if (sources.empty()) return paths;
    std::string folder = util::FolderOf(sources.front());
    std::string made = target.empty() ? folder : target;
    std::string drawing = importer::DrawingPath(sources.front(), made);
    paths.drawing = DrawingKey(made, util::BaseNameOf(drawing));
    const startup::ImportRow* row = conversions.FindImport(util::ExtensionOf(sources.front()));
    if (row && row->addsToDrawing) paths.addedTo = platform::NativePath(drawing);
    for (const std::string& source : sources) {
        bool beside = util::FileNameOf(source) == source;
        AddWithCompanions(paths.sources, beside ? util::JoinPath(folder, source) : source);
    }
    return paths;
}

CommandPaths PathsOfExport(std::string_view text, const std::string& target) {
    CommandPaths paths;
    startup::ExportCommand command = startup::ParseExport(text);
    std::string made = target.empty() ? util::FolderOf(command.targetPath) : target;
    paths.drawing = DrawingKey(made, util::FileNameOf(command.targetPath));
    AddSource(paths.sources, platform::FindExisting(command.drawingPath));
    return paths;
}

}  // namespace

std::vector<Source> SourceOf(const std::string& native) {
    std::vector<Source> sources;
    AddSource(sources, native);
    return sources;
}

bool PrintsItsEntry(const Entry& entry) {
    const std::vector<std::string> arguments = ArgumentsOf(entry.command);
    return std::ranges::find(arguments, "--json") != arguments.end();
}

std::vector<std::string> ArgumentsOf(std::string_view command) {
    std::size_t options = command.size();
    for (std::string_view name : {"--to", "--set", "--strict", "--json", "--yes"})
        options = std::min(options, FindOption(command, name));
    std::vector<std::string> arguments{std::string(util::Trim(command.substr(0, options)))};
    for (std::string& option : platform::SplitArguments(command.substr(options)))
        arguments.push_back(std::move(option));
    return arguments;
}

CommandPaths PathsOf(const startup::Conversions& conversions, std::string_view command) {
    std::vector<std::string> arguments = ArgumentsOf(command);
    std::string text = arguments.front(), target = TargetFolder(arguments);
    while (startup::TakeYes(text)) {
    }
    startup::TakeQuiet(text);
    startup::TakeExtent(text);
    text = startup::Tidied(conversions, util::Trim(startup::WithoutQuotes(util::Trim(text))));
    return startup::ModeOf(text) == startup::Mode::Import ? PathsOfImport(conversions, text, target)
                                                          : PathsOfExport(text, target);
}

}  // namespace vexlator::batch
