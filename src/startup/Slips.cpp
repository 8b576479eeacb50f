// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Slips.h"

#include "platform/AsciiCase.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "startup/CommandLine.h"
#include "startup/NamedFiles.h"
#include "startup/Similar.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>
#include <cctype>
#include <span>

namespace vexlator::startup {

namespace {

constexpr std::string_view howToExport =
    "an export is a path alone, as in \"/data/roads.SHP\", which reads /data/roads.VDF and fills the folder "
    "/data/roads";
constexpr std::string_view howToJoin = "; join several files with |, as in \"IMPORT a.shp|b.shp\"";

/// A command with a slip.
struct Given {
    const Conversions& conversions;
    NamedFiles files;
    std::string_view text;
    std::string_view argument;             ///< an import up to its first bar, an export's whole text
    std::span<const std::string> sources;  ///< sources of an import

    std::string_view Behind() const { return files.BehindFirst(argument); }
    std::string_view First() const { return files.First(argument); }
    std::string_view Missing() const { return files.FirstMissing(argument); }
    std::string Word() const { return platform::UpperAscii(text.substr(0, text.find(' '))); }
    std::string Rest() const { return std::string(util::Trim(text.substr(Word().size()))); }
    std::string Path() const { return platform::AbsolutePath(argument); }
};

/// The advice for a user who made this slip; "" if the command does not have it.
using Advice = std::string (*)(const Given&);

struct SlipRow {
    Advice advice;
    ExitStatus status = ExitStatus::NothingToDo;
};

std::optional<Slip> FirstOf(std::span<const SlipRow> rows, const Given& given) {
    for (const SlipRow& row : rows)
        if (std::string advice = row.advice(given); !advice.empty()) return Slip{row.status, advice};
    return std::nullopt;
}

std::optional<Slip> ExportSlip(const Conversions& conversions, std::string_view text);

// --- Parts of the advice.

std::string Quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}
std::string Native(std::string_view path) {
    return Quoted(platform::NativePath(path));
}
std::string DidYouMean(std::string_view command) {
    return "did you mean " + Quoted(command) + "?";
}
std::string Import(std::string_view path) {
    return "IMPORT " + std::string(path);
}
std::string ImportOf(std::string_view path) {
    return Import(platform::NativePath(path));
}
std::string NameAFormat(std::string_view drawing) {
    return "; name the format to export it to, as in " + Native(util::ChangeExtension(drawing, "SHP"));
}
std::string NotUnderstood(std::string_view text) {
    return Quoted(text) + " is not understood";
}

// --- Parts of the tests.

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
    return std::ranges::find(words, word) != words.end();
}
bool IsLetter(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0;
}
bool HasPattern(std::string_view text) {
    return text.find_first_of("*?") != std::string_view::npos;
}

/// The format of the last word, as in "KML" and "x.kml"; "" if it has none.
std::string LastFormat(const Given& given, std::string_view text) {
    std::string_view word = text.substr(text.find_last_of(nameSeparators) + 1);
    std::string code = CodeOf(word).empty() ? platform::UpperAscii(word) : CodeOf(word);
    return code == "VDF" || given.conversions.FindExport(code) ? code : "";
}

/// "" if the word is not a switch.
std::string SwitchAdvice(std::string_view text) {
    std::string word(text.substr(0, text.find(' ')));
    std::string name = platform::UpperAscii(word.substr(std::min(word.find_first_not_of("-/"), word.size())));
    if (name.empty() || !IsLetter(name[0])) return "";
    bool isQuiet = name == "Q" || IsOneSlipFrom(name, "QUIET");
    if (!word.starts_with('-') && !(isQuiet && word.starts_with('/'))) return "";
    if (isQuiet) return Quoted(word) + " is not a switch; " + DidYouMean("-QUIET");
    return Quoted(word) +
           " is not a switch; there are -QUIET and ?BOX, --yes before or after the command, and the options "
           "of vexlator --help";
}

// --- Slips of either kind of command.

std::string WebAddress(const Given& given) {
    std::size_t sign = given.argument.find("://");
    if (sign == std::string_view::npos) return "";
    if (platform::UpperAscii(given.argument.substr(0, sign)) == "FILE")
        return Quoted(given.argument) + " is an address; give the path alone, " +
               Quoted(given.argument.substr(sign + 3));
    return Quoted(given.argument) + " is a web address; download the file, and give its path";
}

std::string WrongSwitch(const Given& given) {
    for (std::string_view part : {given.argument, given.Behind(), given.Missing()})
        if (std::string advice = SwitchAdvice(part); !advice.empty()) return advice;
    return "";
}

std::string LeftQuote(const Given& given) {
    if (given.argument.find('"') == std::string_view::npos) return "";
    return "a double quote is left over in " + std::string(given.argument) +
           "; put two around the whole command, or none";
}

/// Text that a shell replaces, except inside quotes.
std::string Shorthand(const Given& given) {
    std::string_view text = given.argument;
    if (text.starts_with("~/"))
        return "~ is no folder inside quotes; give the whole path for " + Quoted(text);
    std::size_t name = text.find('$') + 1;  // 0: none
    bool isVariable = name > 0 && name < text.size() && (IsLetter(text[name]) || text[name] == '{');
    bool isWindowsVariable = text.starts_with('%') && text.find('%', 1) != std::string_view::npos;
    if (!isVariable && !isWindowsVariable) return "";
    return "no variable is replaced in " + Quoted(text) + "; give the whole path";
}

std::string Brackets(const Given& given) {
    std::string_view text = given.argument;
    for (std::string_view pair : {"<>", "[]", "()", "{}"})
        if (text.size() > 2 && text.front() == pair[0] && text.back() == pair[1]) {
            std::string inner(text.substr(1, text.size() - 2));
            return DidYouMean(ModeOf(given.text) == Mode::Import ? Import(inner) : inner);
        }
    return "";
}

/// A path of another system. Nobody guesses its target on this one.
std::string MissingDrive(const Given& given) {
    std::string_view path = given.First();
    bool isDrive =
        path.size() > 2 && IsLetter(path[0]) && path[1] == ':' && (path[2] == '\\' || path[2] == '/');
    if (!isDrive && !path.starts_with("\\\\")) return "";
    bool isSource = ModeOf(given.text) == Mode::Import;
    std::string file = isSource ? std::string(path) : util::ChangeExtension(path, "VDF");
    return std::string("there is no ") + (isSource ? "file " : "drawing ") + Quoted(file) +
           ", which is searched for as " + Native(file) + "; put it there, or give its path on this system";
}

// --- Slips of exports.

/// The drawing is missing, but a file beside it can be imported to make it.
std::string SourceInstead(const Given& given) {
    std::string source = given.files.SourceBeside(given.Path());
    std::string code = CodeOf(given.text);
    if (source.empty() || code.empty()) return "";
    bool isExport = code == "VDF" || given.conversions.FindExport(code);
    if (!isExport && !given.files.CanImport(code)) return "";
    if (!isExport) return "nothing exports to " + Quoted(code) + "; " + DidYouMean(ImportOf(source));
    return "there is no drawing " + Native(util::ChangeExtension(given.Path(), "VDF")) +
           "; make it first: " + Quoted(ImportOf(source));
}

std::string AnotherVerb(const Given& given) {
    std::string word = given.Word(), rest = given.Rest();
    bool reads = IsOneOf(word, {"GET", "LOAD", "OPEN", "READ"});
    if (!reads && !IsOneOf(word, {"CONVERT", "EXPORT", "SAVE", "TRANSLATE", "VEXLATOR", "WRITE"})) return "";
    if (reads && IsThere(rest) && given.files.CanImport(CodeOf(rest))) return DidYouMean(Import(rest));
    if (given.files.IsCommand(rest) || rest.starts_with(importWord)) return DidYouMean(rest);
    if (reads && (given.files.CanImport(CodeOf(rest)) || platform::FolderExists(rest)))
        return DidYouMean(Import(rest));
    std::optional<Slip> slip = ExportSlip(given.conversions, rest);
    return slip && !rest.empty() ? slip->advice : std::string(howToExport);
}

std::string MisspeltImport(const Given& given) {
    std::string rest = given.Rest();
    return IsOneSlipFrom(given.Word(), importWord) ? DidYouMean(Import(rest.empty() ? "FILE" : rest)) : "";
}

/// "importroads.shp", in lower case.
std::string ForgottenBlank(const Given& given) {
    if (!platform::UpperAscii(given.text).starts_with(importWord)) return "";
    std::string_view rest = given.text.substr(importWord.size());
    return given.files.CanImport(CodeOf(rest)) && IsThere(rest) ? DidYouMean(Import(rest)) : "";
}

/// "SHP x.VDF"
std::string FormatInFront(const Given& given) {
    std::string rest = given.Rest();
    if (rest.empty() || !given.conversions.FindExport(given.Word())) return "";
    std::string drawing = CodeOf(rest).empty() ? rest + ".VDF" : util::ChangeExtension(rest, "VDF");
    return IsThere(drawing) ? DidYouMean(util::ChangeExtension(drawing, given.Word())) : "";
}

std::string OptionWithoutHyphens(const Given& given) {
    if (IsOneOf(given.Word(), {"SELECT", "GO"})) return DidYouMean(given.Word());
    return IsOneOf(given.Word(), {"INIT", "CHECK"}) ? "see vexlator --help for --init and --check" : "";
}

std::string PatternOfExports(const Given& given) {
    return HasPattern(given.text)
               ? "one command makes one export; give a command for each drawing of " + Quoted(given.text)
               : "";
}

/// "x.VDF TO SHP", "x.SHP|x.CSV", "a.shp b.kml"
std::string FormatBehind(const Given& given) {
    std::string format = LastFormat(given, given.Behind());
    if (given.Behind().empty() || format.empty()) return "";
    std::string first(given.First()), other = util::ChangeExtension(first, format);
    if (CodeOf(first) == "VDF" && format != "VDF") return DidYouMean(other);
    bool isSource = IsThere(first) && given.files.CanImport(CodeOf(first));
    if (isSource && format == CodeOf(first)) return DidYouMean(Import(given.text));
    if (isSource)
        return "first " + Quoted(Import(first)) +
               (format == "VDF" ? "" : ", then " + Quoted(other) + "; they are two commands");
    return "one command makes one export; give a command for each, as in " + Quoted(first) +
           (format == "VDF" ? "" : " and " + Quoted(other));
}

std::string StrangeBehind(const Given& given) {
    if (given.Behind().empty()) return "";
    return NotUnderstood(given.Behind()) + "; " + std::string(howToExport);
}

std::string WithoutSeparatorAtEnd(std::string_view path) {
    return std::string(path.substr(0, path.find_last_not_of("\\/") + 1));
}

std::string FolderOfDrawings(const Given& given) {
    std::string folder = WithoutSeparatorAtEnd(given.Path());
    if (!platform::FolderExists(folder) || IsThere(folder + ".VDF")) return "";
    std::string drawing = "roads.VDF";
    for (const std::string& file : platform::ListFiles(folder))
        if (CodeOf(file) == "VDF") drawing = file;
    return Native(folder) + " is a folder; name a drawing in it and its format, as in " +
           Native(util::ChangeExtension(util::JoinPath(folder, drawing), "SHP"));
}

std::string SeparatorAtEnd(const Given& given) {
    std::string path = WithoutSeparatorAtEnd(given.argument);
    return path.size() < given.argument.size() && given.files.IsCommand(path) ? DidYouMean(path) : "";
}

std::string DrawingItself(const Given& given) {
    if (CodeOf(given.text) != "VDF" || !IsThere(given.text)) return "";
    return "VDF is the format of drawings" + NameAFormat(given.Path());
}

std::string NoFormat(const Given& given) {
    std::string path = WithoutSeparatorAtEnd(given.Path()), drawing = path + ".VDF";
    if (!ParseExport(given.text).code.empty()) return "";
    if (IsThere(drawing))
        return Native(path) + " names no format, as " + Native(path + ".SHP") + " does; formats are " +
               given.conversions.ExportList();
    std::string source = given.files.SourceBeside(path);
    return Quoted(given.text) + " is not a command, and there is no drawing " + Native(drawing) + "; " +
           (source.empty() ? "see vexlator --help" : DidYouMean(ImportOf(source)));
}

std::string NoDrawing(const Given& given) {
    std::string code = CodeOf(given.text);
    if (code != "VDF" && !given.conversions.FindExport(code)) return "";
    return "there is no drawing " + Native(ParseExport(given.text).drawingPath) +
           "; \"IMPORT FILE\" makes a drawing, and its path with a format as its extension exports it";
}

constexpr SlipRow exportSlips[] = {
    {WebAddress},
    {SourceInstead, ExitStatus::Failed},
    {WrongSwitch, ExitStatus::NotUsable},
    {LeftQuote},
    {Shorthand},
    {Brackets},
    {AnotherVerb},
    {MisspeltImport},
    {ForgottenBlank},
    {FormatInFront},
    {OptionWithoutHyphens},
    {PatternOfExports},
    {FormatBehind},
    {StrangeBehind},
    {FolderOfDrawings},
    {SeparatorAtEnd},
    {DrawingItself},
    {NoFormat},
    {MissingDrive, ExitStatus::Failed},
    {NoDrawing, ExitStatus::Failed},
};

std::optional<Slip> ExportSlip(const Conversions& conversions, std::string_view text) {
    return FirstOf(exportSlips, {conversions, NamedFiles(conversions), text, text, {}});
}

// --- Slips of imports with a missing source.

std::string JoinedWord(const Given& given) {
    std::string_view behind = given.text.substr(importWord.size());
    bool isJoined = !behind.empty() && std::isalnum(static_cast<unsigned char>(behind.front()));
    return isJoined ? DidYouMean(Import(behind)) : "";
}

std::string WrongExtent(const Given& given) {
    std::string word = platform::UpperAscii(given.Behind().substr(0, given.Behind().find(' ')));
    if (!IsOneOf(word, {"BOX", "BBOX", "?BBOX", "EXTENT"})) return "";
    return NotUnderstood(given.Behind()) + "; write an extent as ?BOX minX,minY,maxX,maxY ?";
}

std::string NoMatch(const Given& given) {
    return HasPattern(given.argument) || given.argument.find('[') != std::string_view::npos
               ? "no file that can be imported matches " + Native(given.sources.front())
               : "";
}

std::string NamedDrawing(const Given& given) {
    if (given.Behind().empty() || CodeOf(given.Missing()) != "VDF") return "";
    return NotUnderstood(given.Missing()) + "; an import names its drawing after its first file";
}

std::string MissingOfSeveral(const Given& given) {
    if (given.Behind().empty() || !given.files.IsKnown(CodeOf(given.Missing()))) return "";
    return "there is no file " + Quoted(given.Missing()) + std::string(howToJoin);
}

std::string StrangeOfSeveral(const Given& given) {
    return given.Behind().empty() ? "" : NotUnderstood(given.Missing()) + std::string(howToJoin);
}

constexpr SlipRow missingSourceSlips[] = {
    {JoinedWord},
    {WebAddress},
    {WrongSwitch, ExitStatus::NotUsable},
    {LeftQuote},
    {Shorthand},
    {Brackets},
    {WrongExtent, ExitStatus::NotUsable},
    {NoMatch, ExitStatus::Failed},
    {NamedDrawing},
    {MissingOfSeveral, ExitStatus::Failed},
    {StrangeOfSeveral},
    {MissingDrive, ExitStatus::Failed},
};

// --- Slips of imports, with or without a missing source.

std::string SourceWithSeparatorAtEnd(const Given& given) {
    std::string path = WithoutSeparatorAtEnd(given.argument);
    bool isFile = path.size() < given.argument.size() && given.files.CanImport(CodeOf(path)) && IsThere(path);
    return isFile ? DidYouMean(Import(path)) : "";
}

/// A drawing is the first in a list, or occurs in it.
std::string DrawingAsSource(const Given& given) {
    const std::string& first = given.sources.front();
    if (CodeOf(first) == "VDF") return Native(first) + " is a drawing already" + NameAFormat(first);
    for (const std::string& path : given.sources)
        if (CodeOf(path) == "VDF")
            return Native(path) +
                   " is a drawing, not a source; an import names its drawing after its first file, " +
                   Native(first);
    return "";
}

std::string FolderOfSources(const Given& given) {
    const std::string& folder = given.sources.front();
    if (CodeOf(folder) == "GDB") return "";  // a geodatabase is a folder
    if (!platform::FolderExists(folder) || !given.files.SourceBeside(folder).empty()) return "";
    for (const std::string& file : platform::ListFiles(folder))
        if (given.files.CanImport(CodeOf(file)))
            return Native(folder) + " is a folder; name a file in it, as in " +
                   Quoted(ImportOf(util::JoinPath(WithoutSeparatorAtEnd(folder), file)));
    return Native(folder) + " is a folder, and none of its files can be imported; formats are " +
           given.conversions.ImportList();
}

std::string UnknownSource(const Given& given) {
    const std::string& path = given.sources.front();
    std::string code = CodeOf(path);
    if (given.files.CanImport(code)) return "";
    std::string advice = code.empty() ? Native(path) + " names no format" : "nothing imports " + Quoted(code);
    std::string source = given.files.SourceBeside(path);
    return advice + "; " +
           (source.empty() ? "formats are " + given.conversions.ImportList() : DidYouMean(ImportOf(source)));
}

/// One importer reads all sources of a command.
std::string AnotherFormat(const Given& given) {
    const std::string& first = given.sources.front();
    const ImportRow* wanted = given.conversions.FindImport(CodeOf(first));
    for (const std::string& path : given.sources) {
        const ImportRow* row = given.conversions.FindImport(CodeOf(path));
        if (wanted && row && row->form != wanted->form)
            return Native(first) + " and " + Native(path) +
                   " are of different formats; give a command for each format";
    }
    return "";
}

constexpr SlipRow importSlips[] = {
    {DrawingAsSource}, {SourceWithSeparatorAtEnd}, {FolderOfSources}, {UnknownSource}, {AnotherFormat},
};

}  // namespace

std::optional<Slip> FindImportSlip(const Conversions& conversions, std::string_view text,
                                   const SourceList& sources) {
    if (sources.paths.empty()) return Slip{.advice = "IMPORT needs a file, as in \"IMPORT /data/roads.shp\""};
    Given given{conversions, NamedFiles(conversions), text, ImportArgument(text.substr(0, text.find('|'))),
                sources.paths};
    bool isMissing = !platform::FileExists(sources.paths.front());
    std::optional<Slip> slip = isMissing ? FirstOf(missingSourceSlips, given) : std::nullopt;
    return slip ? slip : FirstOf(importSlips, given);
}

std::optional<Slip> FindExportSlip(const Conversions& conversions, std::string_view text) {
    return NamedFiles(conversions).IsCommand(text) ? std::nullopt : ExportSlip(conversions, text);
}

}  // namespace vexlator::startup
