// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "batch/CommandPaths.h"

#include "import/SourceFiles.h"
#include "platform/AsciiCase.h"
#include "platform/FileStamp.h"
#include "platform/Paths.h"
#include "startup/CommandLine.h"
#include "startup/Sources.h"
#include "startup/Tidied.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <array>

namespace vexlator::batch {

namespace {

/// Files that are read along with a source, by its format code.
struct Companions {
    std::string_view code;
    std::array<std::string_view, 4> endings;
};
constexpr Companions companions[] = {
    {"SHP", {"dbf", "shx", "cpg", "prj"}},
    {"MID", {"mif"}},
    {"MIF", {"mid"}},
};

void AddSource(std::vector<Source>& sources, const std::string& native) {
    constexpr int nanoseconds = 9;
    if (auto stamp = platform::StampOf(native))
        sources.push_back({native, stamp->size, TimeText(stamp->time, nanoseconds)});
}

void AddWithCompanions(std::vector<Source>& sources, const std::string& path) {
    std::string native = platform::FindExisting(path);
    AddSource(sources, native);
    std::string code = platform::UpperAscii(util::ExtensionOf(native));
    for (const Companions& known : companions) {
        if (known.code != code) continue;
        for (std::string_view ending : known.endings) {
            if (ending.empty()) continue;
            // Looked for by name: a search without letter case would list the folder for every missing one.
            AddSource(sources, util::ChangeExtension(native, ending));
            AddSource(sources, util::ChangeExtension(native, platform::UpperAscii(ending)));
        }
    }
}

/// The path as a key: letter case does not tell files apart.
std::string DrawingKey(const std::string& folder, const std::string& name) {
    return platform::LowerAscii(platform::NativePath(util::JoinPath(folder, name)));
}

CommandPaths PathsOfImport(const startup::Conversions& conversions, std::string_view text) {
    CommandPaths paths;
    std::vector<std::string> sources = startup::FindSources(conversions, startup::ImportArgument(text)).paths;
    if (sources.empty()) return paths;
    std::string folder = util::FolderOf(sources.front());
    std::string drawing = importer::DrawingPath(sources.front(), folder);
    paths.drawing = DrawingKey(folder, util::BaseNameOf(drawing));
    const startup::ImportRow* row = conversions.FindImport(util::ExtensionOf(sources.front()));
    if (row && row->addsToDrawing) paths.addedTo = platform::NativePath(drawing);
    for (const std::string& source : sources) {
        bool beside = util::FileNameOf(source) == source;
        AddWithCompanions(paths.sources, beside ? util::JoinPath(folder, source) : source);
    }
    return paths;
}

CommandPaths PathsOfExport(std::string_view text) {
    CommandPaths paths;
    startup::ExportCommand command = startup::ParseExport(text);
    paths.drawing = DrawingKey(util::FolderOf(command.targetPath), util::FileNameOf(command.targetPath));
    AddSource(paths.sources, platform::FindExisting(command.drawingPath));
    return paths;
}

}  // namespace

std::vector<Source> SourceOf(const std::string& native) {
    std::vector<Source> sources;
    AddSource(sources, native);
    return sources;
}

CommandPaths PathsOf(const startup::Conversions& conversions, std::string_view command) {
    std::string text(command);
    while (startup::TakeYes(text)) {
    }
    startup::TakeQuiet(text);
    startup::TakeExtent(text);
    text = startup::Tidied(conversions, util::Trim(startup::WithoutQuotes(util::Trim(text))));
    return startup::ModeOf(text) == startup::Mode::Import ? PathsOfImport(conversions, text)
                                                          : PathsOfExport(text);
}

}  // namespace vexlator::batch
