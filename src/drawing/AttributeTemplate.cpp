// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/AttributeTemplate.h"

#include "platform/CodePages.h"
#include "platform/Files.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::drawing {

namespace {

struct TemplateSettings {
    bool generate = false;
};

using Keys = config::Keys<TemplateSettings>;

constexpr config::KeyOf<TemplateSettings> keys[] = {
    Keys::Flag("GENERICIN", "GenATP", &TemplateSettings::generate,
               "imports offer to make the missing attribute templates of feature codes"),
};

constexpr std::string_view header = "[26,09]\r\n";
constexpr std::string_view stylePrefix = "'STYLE=";
constexpr std::uint64_t largestAlias = 16;
constexpr std::size_t listedNameLength = 10;

std::string SharedAtpPath(const config::Run& run, std::string_view featureCode) {
    return util::JoinPath(run.Settings().ATPDirectory, util::SafeFileName(featureCode) + ".ATP");
}

/// The file's bytes; "" when it is missing.
std::string ReadSmallFile(std::string_view path) {
    if (util::FileSize(path) == 0) return "";
    platform::MappedFile file(path);
    if (file.Text().size() > largestTemplate)
        throw platform::ReadError(file.Name(), "",
                                  "is no attribute template: " + util::GroupedCount(file.Text().size()) +
                                      " bytes, at most " + util::GroupedCount(largestTemplate) +
                                      " are expected");
    return std::string(file.Text());
}

/// Windows-1252, as the device writes it, unless a character would be lost or the text would read back as
/// UTF-8.
std::string EncodeTemplate(const std::string& text) {
    if (platform::IsAscii(text) || !platform::FitsWindows1252(text)) return text;
    std::string bytes = platform::Windows1252FromUtf8(text);
    return platform::IsUtf8(bytes) ? text : bytes;
}

std::string ReadTemplate(std::string_view path) {
    return platform::DecodeText(ReadSmallFile(path));
}

std::string_view Part(std::string_view text, std::size_t begin, std::size_t length) {
    return util::Trim(begin < text.size() ? text.substr(begin, length) : std::string_view());
}

void SetNames(AtpField& field, std::string_view text) {
    std::size_t bracket = text.find('<');
    field.name = util::Trim(text.substr(0, bracket));
    if (bracket == std::string_view::npos) return;
    std::string_view second = text.substr(bracket + 1);
    field.shortName = second.substr(0, second.empty() ? 0 : second.size() - 1);
}

void SetType(AtpField& field, std::string_view text) {
    if (!text.empty()) field.type = text[0];
    field.width = Part(text, 1, 2);
    field.decimals = Part(text, 4, 2);
}

/// The fields of a line as "name", "type", ...
AtpField FieldOf(std::string_view line) {
    std::size_t bracket = line.find(']');
    if (bracket != std::string_view::npos) line.remove_prefix(bracket + 1);
    std::size_t nameEnd = line.find_first_of(",=");
    std::string_view rest = nameEnd == std::string_view::npos ? std::string_view() : line.substr(nameEnd + 1);
    AtpField field;
    SetNames(field, util::Trim(line.substr(0, nameEnd)));
    SetType(field, util::Trim(rest.substr(0, rest.find_first_of(",="))));
    return field;
}

bool IsFieldLine(std::string_view line) {
    return !line.starts_with('\'') && std::count(line.begin(), line.end(), ',') >= 2;
}

int TwoDigits(const std::string& text) {
    return static_cast<int>(std::clamp<std::int64_t>(util::IntegerOf(text), 0, 99));
}

std::string PaddedTo(std::size_t length, std::string_view text) {
    std::size_t characters = platform::CountCharacters(text);
    return std::string(text) + std::string(characters < length ? length - characters : 0, ' ');
}

std::string FieldLine(std::size_t number, std::string_view paddedName, int width) {
    return "[01," + util::ZeroPadded(static_cast<std::int64_t>(number), 2) + "]" + std::string(paddedName) +
           ",C" + util::ZeroPadded(width, 2) + ".00\r\n";
}

}  // namespace

std::string AtpNameOf(std::string name) {
    constexpr std::string_view syntax = ",=<]\x7F";
    for (char& c : name)
        if (static_cast<unsigned char>(c) < ' ' || syntax.find(c) != std::string_view::npos) c = '_';
    if (util::Trim(name) == "NULL") name += '_';
    return name;
}

int AtpField::Width() const {
    return TwoDigits(width);
}
int AtpField::Decimals() const {
    return TwoDigits(decimals);
}

std::string AtpPathFor(const config::Run& run, std::string_view featureCode) {
    std::string folder = util::JoinPath(run.Settings().ConfigFolder, "LocalATPs");
    std::string local = util::JoinPath(folder, util::SafeFileName(featureCode) + ".ATP");
    return util::FileSize(local) > 0 ? local : SharedAtpPath(run, featureCode);
}

std::vector<AtpField> ParseAtpFields(std::string_view text, NullFields nulls) {
    std::vector<AtpField> fields;
    for (util::LineReader lines(text); !lines.AtEnd();) {
        std::string_view line = lines.ReadTextLine();
        if (!IsFieldLine(line)) continue;
        AtpField field = FieldOf(line);
        if (nulls == NullFields::Keep || field.name != "NULL") fields.push_back(std::move(field));
    }
    return fields;
}

std::vector<AtpField> ReadAtpFields(std::string_view templatePath, NullFields nulls) {
    return ParseAtpFields(ReadTemplate(templatePath), nulls);
}

std::string ReadAtpStyle(const config::Run& run, std::string_view featureCode) {
    std::string text = ReadTemplate(SharedAtpPath(run, featureCode));
    std::string_view style;
    for (util::LineReader lines(text); !lines.AtEnd();) {
        std::string_view line = lines.ReadTextLine();
        if (line.starts_with(stylePrefix)) style = line.substr(stylePrefix.size());
    }
    return std::string(style);
}

std::string ResolveAtpAlias(const config::Run& run, std::string_view featureCode) {
    std::string path = SharedAtpPath(run, featureCode);
    std::uint64_t size = util::FileSize(path);
    if (size == 0 || size > largestAlias) return std::string(featureCode);
    std::string text = ReadTemplate(path);
    std::string_view line = util::LineReader(text).ReadTextLine();
    std::size_t equals = line.find('=');
    return std::string(equals == std::string_view::npos ? featureCode : line.substr(0, equals));
}

void WriteAtpFromFields(std::string_view templatePath, std::span<const std::string> names) {
    constexpr int width = 32;
    std::string text(header);
    if (names.empty()) text += FieldLine(1, PaddedTo(listedNameLength, "HANDLE"), width);
    for (std::size_t i = 0; i < names.size(); ++i)
        text += FieldLine(i + 1, PaddedTo(listedNameLength, AtpNameOf(names[i])), width);
    util::MakeFolder(util::FolderOf(templatePath));
    platform::ReplaceFile(templatePath, EncodeTemplate(text));
}

void GenerateAtp(config::Run& run, std::string_view templatePath, std::span<const std::string> names,
                 std::span<const int> widths) {
    if (util::FileSize(templatePath) > 0 ||
        !config::ReadKeys<TemplateSettings>(run.Installation(), keys).generate)
        return;
    if (!run.Ui().AskYesNo("Generate ATP For " + util::BaseNameOf(templatePath))) return;
    std::string text(header);
    for (std::size_t i = 0; i < names.size(); ++i) {
        std::string name = AtpNameOf(names[i]);
        name = PaddedTo(importedNameLength, platform::FirstCharacters(name, importedNameLength));
        text += FieldLine(i + 1, name, std::clamp(widths[i], 1, 99));
    }
    platform::ReplaceFile(templatePath, EncodeTemplate(text));
}

config::KeyList TemplateKeys() {
    return config::ListOf<TemplateSettings>(keys);
}

std::string ConvertXotToAtx(std::string_view path) {
    std::string names = ReadSmallFile(util::ChangeExtension(path, "XOT"));
    if (names.empty()) return std::string(path);
    std::string text;
    for (util::LineReader lines(names); !lines.AtEnd();)
        text += "[00,00]" + std::string(util::GetCommaField(0, lines.ReadTextLine())) + ",C20.00=\r\n";
    std::string target = util::ChangeExtension(path, "ATX");
    platform::ReplaceFile(target, text);
    return target;
}

}  // namespace vexlator::drawing
