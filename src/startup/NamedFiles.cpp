// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/NamedFiles.h"

#include "platform/AsciiCase.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "startup/CommandLine.h"
#include "util/Paths.h"

#include <algorithm>

namespace vexlator::startup {

bool IsThere(std::string_view path) {
    return platform::FileExists(platform::AbsolutePath(path));
}

std::string CodeOf(std::string_view path) {
    std::string name = util::FileNameOf(path);
    return name.find('.') == std::string::npos ? "" : platform::UpperAscii(util::ExtensionOf(name));
}

bool NamedFiles::CanImport(std::string_view code) const {
    return conversions_.FindImport(code) != nullptr;
}

bool NamedFiles::IsKnown(const std::string& code) const {
    return code == "VDF" || CanImport(code) || conversions_.FindExport(code);
}

bool NamedFiles::IsCommand(std::string_view text) const {
    if (ModeOf(text) == Mode::Import) {
        ImportCommand command = ParseImport(text);
        return CanImport(command.code) && IsThere(command.sourcePath);
    }
    ExportCommand command = ParseExport(text);
    return conversions_.FindExport(command.code) && IsThere(command.drawingPath);
}

std::string NamedFiles::SourceBeside(const std::string& path) const {
    if (CanImport(CodeOf(path)) && IsThere(path)) return platform::FindExisting(path);
    std::string folder = util::FolderOf(path);
    std::string name = util::BaseNameOf(path);
    for (const std::string& file : platform::ListFiles(folder))
        if (platform::SameNoCase(util::BaseNameOf(file), name) && CanImport(CodeOf(file)))
            return util::JoinPath(folder, file);
    return "";
}

std::string_view NamedFiles::BehindFirst(std::string_view text) const {
    std::size_t end = 0;
    while ((end = text.find_first_of(nameSeparators, end + 1)) != std::string_view::npos)
        if (IsKnown(CodeOf(text.substr(0, end))))
            return text.substr(std::min(text.find_first_not_of(nameSeparators, end), text.size()));
    return {};
}

std::string_view NamedFiles::First(std::string_view text) const {
    text.remove_suffix(BehindFirst(text).size());
    return text.substr(0, text.find_last_not_of(nameSeparators) + 1);
}

std::string_view NamedFiles::FirstMissing(std::string_view text) const {
    while (!BehindFirst(text).empty() && IsThere(First(text))) text = BehindFirst(text);
    return First(text);
}

}  // namespace vexlator::startup
