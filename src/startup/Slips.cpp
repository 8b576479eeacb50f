// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Slips.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "startup/CommandLine.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>
#include <cctype>

namespace vexlator::startup {

namespace {

constexpr std::string_view howToExport =
    "an export is a path alone, as in \"/data/roads.SHP\", which reads /data/roads.VDF";

std::string Quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}
std::string Native(std::string_view path) {
    return Quoted(platform::NativePath(path));
}
std::string DidYouMean(const std::string& command) {
    return "did you mean " + Quoted(command) + "?";
}

std::string CodeOf(std::string_view path) {
    return platform::UpperAscii(util::ExtensionOf(util::FileNameOf(path)));
}
bool IsThere(std::string_view path) {
    return platform::FileExists(platform::AbsolutePath(path));
}

std::string WithoutQuietWords(const std::string& text) {
    constexpr std::string_view word = " -quiet ";
    std::string padded = " " + text + " ";
    while (std::size_t position = util::InStrNoCase(padded, word))
        padded.replace(position - 1, word.size(), " ");
    return std::string(util::Trim(padded));
}

/// One letter more, less or wrong, or two that changed places.
bool IsOneSlipFrom(std::string_view word, std::string_view meant) {
    while (!word.empty() && !meant.empty() && word.front() == meant.front()) {
        word.remove_prefix(1);
        meant.remove_prefix(1);
    }
    while (!word.empty() && !meant.empty() && word.back() == meant.back()) {
        word.remove_suffix(1);
        meant.remove_suffix(1);
    }
    bool changedPlaces = word.size() == 2 && meant.size() == 2 && word[0] == meant[1] && word[1] == meant[0];
    return changedPlaces || std::max(word.size(), meant.size()) <= 1;
}

/// The slips of one command, against the formats that there are.
class Finder {
public:
    explicit Finder(const Conversions& conversions) : conversions_(conversions) {}

    bool NamesFiles(std::string_view text) const {
        if (ModeOf(text) == Mode::Import) {
            ImportCommand command = ParseImport(text);
            return CanImport(conversions_, command.code) && IsThere(command.sourcePath);
        }
        ExportCommand command = ParseExport(text);
        return conversions_.FindExport(command.code) && IsThere(command.drawingPath);
    }

    std::optional<Slip> InImport(std::string_view text, const SourceList& sources) const {
        if (sources.paths.empty())
            return Slip{.advice = "IMPORT needs a file, as in \"IMPORT /data/roads.shp\""};
        const std::string& path = sources.paths.front();
        std::string code = CodeOf(path);
        if (!IsThere(path))
            if (auto slip = InMissingSource(text.substr(0, text.find('|')), path)) return slip;
        if (code == "VDF") return Slip{.advice = Native(path) + " is a drawing already" + NameAFormat(path)};
        if (!CanImport(conversions_, code)) return UnknownSource(path, code);
        return AnotherFormat(sources);
    }

    std::optional<Slip> InExport(std::string_view text) const {
        ExportCommand command = ParseExport(text);
        if (auto slip = InWords(text)) return slip;
        std::string_view behind = BehindFirstFile(text);
        if (auto slip = InSigns(behind)) return slip;
        if (!behind.empty())
            return Slip{.advice = Quoted(behind) + " is not understood; " + std::string(howToExport)};
        if (command.code == "VDF")
            return Slip{.advice = "VDF is what drawings are kept in" + NameAFormat(command.drawingPath)};
        std::string source = SourceBeside(platform::AbsolutePath(text));
        if (source.empty()) return std::nullopt;
        std::string import = "IMPORT " + platform::NativePath(source);
        const ExportRow* row = conversions_.FindExport(command.code);
        if (row && row->call)
            return Slip{ExitStatus::Failed, "there is no drawing " + Native(command.drawingPath) +
                                                "; make it first: " + Quoted(import)};
        if (!CanImport(conversions_, command.code)) return std::nullopt;
        return Slip{.advice = "nothing exports to " + Quoted(command.code) + "; " + DidYouMean(import)};
    }

private:
    static std::string NameAFormat(std::string_view drawing) {
        return "; name the format to export it to, as in " + Native(util::ChangeExtension(drawing, "SHP"));
    }

    /// What the words of a command tell whose file is not there.
    static std::optional<Slip> InWords(std::string_view text) {
        std::string word = platform::UpperAscii(text.substr(0, text.find(' ')));
        std::string rest(util::Trim(text.substr(word.size())));
        if (word == "EXPORT" || word == "CONVERT") return Slip{.advice = std::string(howToExport)};
        if (IsOneSlipFrom(word, importWord))
            return Slip{.advice = DidYouMean("IMPORT " + (rest.empty() ? "FILE" : rest))};
        if (word == "SELECT" || word == "GO") return Slip{.advice = DidYouMean(word)};
        if (word == "INIT" || word == "CHECK")
            return Slip{.advice = "see vexlator --help for --init and --check"};
        if (auto slip = InSigns(text)) return slip;
        if (text.find_first_of("*?") != std::string_view::npos)
            return Slip{.advice = "one command makes one export; give a command for each drawing of " +
                                  Quoted(text)};
        return std::nullopt;
    }
    /// What stands in no path.
    static std::optional<Slip> InSigns(std::string_view text) {
        if (text.starts_with('-'))
            return Slip{ExitStatus::NotUsable,
                        Quoted(text.substr(0, text.find(' '))) +
                            " is no switch; there are -QUIET and ?BOX, and the options of "
                            "vexlator --help"};
        if (text.find('"') != std::string_view::npos)
            return Slip{.advice = "a double quote is left over in " + std::string(text) +
                                  "; put two around the whole command, or none"};
        if (text.starts_with("~/"))
            return Slip{.advice = "~ is no folder inside quotes; give the whole path for " + Quoted(text)};
        return std::nullopt;
    }

    std::optional<Slip> InMissingSource(std::string_view text, const std::string& path) const {
        bool isJoined = text.size() > importWord.size() &&
                        std::isalnum(static_cast<unsigned char>(text[importWord.size()]));
        if (isJoined)
            return Slip{.advice = DidYouMean("IMPORT " + std::string(text.substr(importWord.size())))};
        std::string_view argument = ImportArgument(text);
        if (auto slip = InSigns(argument)) return slip;
        if (argument.find_first_of("*?") != std::string_view::npos)
            return Slip{ExitStatus::Failed, "no file that can be imported matches " + Native(path)};
        if (BehindFirstFile(argument).empty()) return std::nullopt;
        std::string_view missing = FirstMissing(argument);
        if (auto slip = InSigns(missing)) return slip;
        if (CodeOf(missing) == "VDF")
            return Slip{.advice = Quoted(missing) +
                                  " is not understood; an import's drawing is named after its first file"};
        constexpr std::string_view joined = "; several files are joined by |, as in \"IMPORT a.shp|b.shp\"";
        if (IsKnown(CodeOf(missing)))
            return Slip{ExitStatus::Failed, "there is no file " + Quoted(missing) + std::string(joined)};
        return Slip{.advice = Quoted(missing) + " is not understood" + std::string(joined)};
    }

    Slip UnknownSource(const std::string& path, const std::string& code) const {
        bool isFolder = platform::FolderExists(path);
        std::string advice =
            code.empty() ? Native(path) + " names no format" : "nothing imports " + Quoted(code);
        if (conversions_.FindImport(code)) advice = code + " import is not available yet";
        if (isFolder) advice = Native(path) + " is a folder";
        std::string source = SourceBeside(path);
        if (!source.empty())
            advice += "; " + DidYouMean("IMPORT " + platform::NativePath(source));
        else
            advice += isFolder ? "; name a file in it" : "; formats are " + conversions_.ImportCodes();
        return {.advice = advice};
    }

    /// One importer reads all sources of a command.
    std::optional<Slip> AnotherFormat(const SourceList& sources) const {
        const std::string& first = sources.paths.front();
        const ImportRow* wanted = conversions_.FindImport(CodeOf(first));
        for (const std::string& path : sources.paths) {
            const ImportRow* row = conversions_.FindImport(CodeOf(path));
            if (wanted && row && row->call && row->form != wanted->form)
                return Slip{.advice = Native(first) + " and " + Native(path) +
                                      " are of different formats; give a command for each format"};
        }
        return std::nullopt;
    }

    bool IsKnown(const std::string& code) const {
        return code == "VDF" || CanImport(conversions_, code) || conversions_.FindExport(code);
    }
    /// What stands behind the first name that ends in a known extension.
    std::string_view BehindFirstFile(std::string_view text) const {
        std::size_t end = 0;
        while ((end = text.find_first_of(nameSeparators, end + 1)) != std::string_view::npos)
            if (IsKnown(CodeOf(text.substr(0, end))))
                return text.substr(std::min(text.find_first_not_of(nameSeparators, end), text.size()));
        return {};
    }
    /// The first of several names that is no file.
    std::string_view FirstMissing(std::string_view text) const {
        while (true) {
            std::string_view behind = BehindFirstFile(text);
            std::string_view name = text.substr(0, text.size() - behind.size());
            name = name.substr(0, name.find_last_not_of(nameSeparators) + 1);
            if (behind.empty() || !IsThere(name)) return name;
            text = behind;
        }
    }
    /// The path itself, or a file beside it with its name and another extension, if it can be imported.
    std::string SourceBeside(const std::string& path) const {
        if (CanImport(conversions_, CodeOf(path)) && IsThere(path)) return platform::FindExisting(path);
        std::string folder = util::FolderOf(path);
        std::string name = util::BaseNameOf(path);
        for (const std::string& file : platform::ListFiles(folder))
            if (platform::SameNoCase(util::BaseNameOf(file), name) && CanImport(conversions_, CodeOf(file)))
                return util::JoinPath(folder, file);
        return "";
    }

    const Conversions& conversions_;
};

}  // namespace

std::string Tidied(const Conversions& conversions, std::string_view text) {
    std::string tidied(text);
    if (Finder(conversions).NamesFiles(text)) return tidied;
    std::erase_if(tidied, [](char c) { return c == '\r' || c == '\n'; });
    if (util::CountOf(tidied, "\"") % 2 == 0) std::erase(tidied, '"');
    if (IsInSingleQuotes(tidied)) tidied = tidied.substr(1, tidied.size() - 2);
    return WithoutQuietWords(tidied);
}

std::optional<Slip> FindImportSlip(const Conversions& conversions, std::string_view text,
                                   const SourceList& sources) {
    return Finder(conversions).InImport(text, sources);
}

std::optional<Slip> FindExportSlip(const Conversions& conversions, std::string_view text) {
    Finder finder(conversions);
    return finder.NamesFiles(text) ? std::nullopt : finder.InExport(text);
}

}  // namespace vexlator::startup
