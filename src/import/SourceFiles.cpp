// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/SourceFiles.h"

#include "platform/AsciiCase.h"
#include "util/Paths.h"

#include <algorithm>

namespace vexlator::importer {

std::vector<std::string> SourceFiles(std::string_view sourcePath, std::string_view fileList) {
    std::vector<std::string> paths{std::string(sourcePath)};
    while (!fileList.empty()) {
        fileList.remove_prefix(std::min(fileList.find('|'), fileList.size() - 1) + 1);
        std::string_view name = fileList.substr(0, fileList.find('|'));
        if (name.empty()) continue;
        bool hasFolder = util::FileNameOf(name) != name;
        paths.push_back(hasFolder ? std::string(name) : util::JoinPath(util::FolderOf(sourcePath), name));
    }
    return paths;
}

std::string DrawingPath(std::string_view sourcePath, std::string_view folder) {
    std::string name = util::BaseNameOf(sourcePath), extension = util::ExtensionOf(sourcePath);
    bool isGml = platform::SameNoCase(extension, "gml") || platform::SameNoCase(extension, "gz");
    if (isGml && platform::SameNoCase(util::ExtensionOf(name), "gml")) name = util::BaseNameOf(name);
    return util::JoinPath(folder, name + ".VDF");
}

std::optional<platform::MappedFile> OpenFile(std::string_view path, ui::UserInterface& show) {
    try {
        return std::make_optional<platform::MappedFile>(path);
    } catch (const platform::ReadError& error) {
        show.ShowMessage("Error Opening " + error.File() + "\n" + error.Reason());
        return std::nullopt;
    }
}

std::optional<platform::MappedFile> OpenTextSource(std::string_view path, ui::UserInterface& show) {
    auto file = OpenFile(path, show);
    if (!file || !file->Bytes().empty()) return file;
    show.ShowMessage("Error Opening " + file->Name() + "\nThe file is empty");
    return std::nullopt;
}

}  // namespace vexlator::importer
