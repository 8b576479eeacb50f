// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "batch/CommandList.h"

#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "startup/NamedFiles.h"
#include "util/Counted.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <array>
#include <cstdio>
#include <unordered_set>

namespace vexlator::batch {

namespace {

constexpr std::string_view drawingCode = "VDF";

std::string ReadStandardInput() {
    std::string text;
    std::array<char, 65536> buffer;
    while (std::size_t size = std::fread(buffer.data(), 1, buffer.size(), stdin))
        text.append(buffer.data(), size);
    return text;
}

/// Editors on Windows also write UTF-16.
std::string DecodeList(std::string_view bytes, const std::string& name) {
    bool little = bytes.starts_with("\xFF\xFE"), big = bytes.starts_with("\xFE\xFF");
    if (little || big) return platform::Decoder(little ? "UTF-16LE" : "UTF-16BE").Decode(bytes.substr(2));
    if (bytes.find('\0') != std::string_view::npos)
        throw ListError(name + " is not a list of commands: it contains bytes that are not text");
    return platform::DecodeText(bytes);
}

void AddLines(CommandList& list, std::string_view text) {
    std::unordered_set<std::string_view> known;
    std::size_t repeated = 0;
    util::LineReader reader(text);
    while (!reader.AtEnd()) {
        std::string_view line = util::Trim(reader.ReadTextLine());
        if (line.empty() || line.starts_with('#')) continue;
        if (known.insert(line).second)
            list.commands.emplace_back(line);
        else
            ++repeated;
    }
    if (repeated > 0)
        list.remarks.push_back(util::Counted(repeated, "command") + " given more than once, run once");
}

/// The commands for the files of a folder and the folders below it.
class FolderCommands {
public:
    FolderCommands(const Options& options, const startup::Conversions& conversions, CommandList& list)
        : options_(options), conversions_(conversions), list_(list) {
        imports_ = options.formats.size() == 1 && options.formats[0] == drawingCode;
        for (const std::string& format : options.formats) CheckFormat(format);
    }

    void Add(const std::string& folder) {
        platform::FolderContent content = platform::ReadFolder(folder);
        for (const std::string& name : content.files)
            if (util::MatchesPattern(name, options_.match)) AddFile(util::JoinPath(folder, name));
        for (const std::string& name : content.folders) Add(util::JoinPath(folder, name));
    }
    void Remark() const {
        if (leftOut_ > 0)
            list_.remarks.push_back(util::Counted(leftOut_, "file") +
                                    (imports_ ? " left out that nothing imports"
                                              : " left out that are not drawings (.VDF); import them first"));
    }

private:
    void CheckFormat(const std::string& format) const {
        if (imports_) return;
        if (format == drawingCode)
            throw ListError("--to VDF imports, and stands alone; run the exports as a second batch");
        if (!conversions_.FindExport(format))
            throw ListError("nothing exports to \"" + format + "\"; formats are VDF, for imports, and " +
                            conversions_.ExportList());
    }
    void AddFile(const std::string& path) {
        std::string code = platform::UpperAscii(util::ExtensionOf(path));
        bool isDrawing = code == drawingCode;
        std::string native = platform::NativePath(path);
        if (imports_ ? isDrawing || !startup::NamedFiles(conversions_).CanImport(code) : !isDrawing) {
            ++leftOut_;
        } else if (imports_) {
            list_.commands.push_back("IMPORT " + native);
        } else {
            for (const std::string& format : options_.formats)
                list_.commands.push_back(util::ChangeExtension(native, format));
        }
    }

    const Options& options_;
    const startup::Conversions& conversions_;
    CommandList& list_;
    bool imports_;
    std::size_t leftOut_ = 0;
};

void AddFolder(CommandList& list, const Options& options, const startup::Conversions& conversions) {
    if (options.match.empty())
        throw ListError(list.name +
                        " is a folder; say which of its files with --match, as in --match '*.shp', "
                        "and what to make of them with --to, as in --to VDF");
    FolderCommands commands(options, conversions, list);
    commands.Add(platform::AbsolutePath(list.name));
    commands.Remark();
}

}  // namespace

CommandList ReadCommands(const Options& options, const startup::Conversions& conversions) {
    constexpr const char* journalName = "vexlator-batch.journal";
    CommandList list;
    bool isFolder = options.list != "-" && platform::FolderExists(options.list);
    if (!isFolder && !options.match.empty())
        throw ListError("--match chooses files of a folder, and " + options.list + " is none");
    if (options.list == "-") {
        list.name = "standard input";
        list.journal = platform::NativePath(platform::AbsolutePath(journalName));
        AddLines(list, DecodeList(ReadStandardInput(), list.name));
    } else if (isFolder) {
        list.name = platform::FindExisting(platform::AbsolutePath(options.list));
        list.journal = list.name + "/" + journalName;
        AddFolder(list, options, conversions);
    } else {
        platform::MappedFile file(platform::AbsolutePath(options.list));
        list.name = file.Name();
        list.journal = list.name + ".journal";
        AddLines(list, DecodeList(file.Text(), list.name));
    }
    if (!options.journal.empty())
        list.journal = platform::NativePath(platform::AbsolutePath(options.journal));
    return list;
}

}  // namespace vexlator::batch
