// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/Mosaic.h"

#include "background/package/PackageIndex.h"
#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "platform/Errors.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <vector>

namespace vexlator::background {

namespace {

constexpr std::size_t longName = 16;
/// The index last, because a package is recognised by it.
constexpr std::string_view renamedFiles[] = {"BAG", "LAY", "GAZ", "GRP"};

std::string FileIn(std::string_view folder, std::string_view package, std::string_view extension) {
    return util::JoinPath(folder, std::string(package) + "." + std::string(extension));
}

bool HoldsPackage(std::string_view folder, std::string_view name) {
    return util::FileSize(FileIn(folder, name, "GRP")) > 0;
}

/// A killed run may have renamed some of the files. The others follow now.
bool RenameFiles(std::string_view folder, std::string_view from, std::string_view to) {
    return std::ranges::all_of(renamedFiles, [&](std::string_view extension) {
        std::string source = FileIn(folder, from, extension);
        return !platform::FileExists(source) || platform::RenameFile(source, FileIn(folder, to, extension));
    });
}

void ShortenName(std::string_view parent, const std::string& name, ui::UserInterface& ui) {
    std::string shortName = ShortPackageName(name);
    std::string folder = util::JoinPath(parent, name), target = util::JoinPath(parent, shortName);
    if (shortName == name || (!HoldsPackage(folder, name) && !HoldsPackage(folder, shortName))) return;
    if (platform::FolderExists(target)) {
        ui.ShowMessage(platform::NativePath(folder) + " keeps its long name: " + shortName +
                       " exists already");
    } else if (!RenameFiles(folder, name, shortName) || !platform::RenameFile(folder, target)) {
        ui.ShowMessage(platform::NativePath(folder) + " cannot be renamed to " + shortName);
    }
}

/// The box in the header of a package's index.
std::optional<Box> ReadExtents(const std::string& index) {
    platform::MappedFile file(index);
    if (file.Bytes().size() < sizeof(GrpIndexRecord)) return std::nullopt;
    GrpIndexRecord header;
    std::memcpy(&header, file.Bytes().data(), sizeof header);
    return Box{header.minX, header.minY, header.maxX, header.maxY};
}

struct Target {
    std::string index, folder;
};

Target TargetFor(std::string_view path) {
    while (path.ends_with('\\') || path.ends_with('/')) path.remove_suffix(1);
    std::string name = util::FileNameOf(path);
    bool isFile = name.find('.') != std::string::npos && !platform::FolderExists(path);
    if (isFile) return {std::string(path), util::FolderOf(path)};
    bool isNamed = !name.empty() && !name.ends_with(':');
    return {FileIn(path, isNamed ? name : "LandLine", "GRP"), std::string(path)};
}

void AddPackage(PackageIndex& index, std::string_view parent, const std::string& name,
                ui::UserInterface& ui) {
    std::string folder = util::JoinPath(parent, name), file = FileIn(folder, name, "GRP");
    if (!HoldsPackage(folder, name)) return;
    if (auto box = ReadExtents(file))
        index.AddIndexEntry(name + ".GRP", *box, member::package);
    else
        ui.ShowMessage(platform::NativePath(file) + ": the header record is truncated");
}

}  // namespace

std::string ShortPackageName(std::string_view name) {
    if (platform::CountCharacters(name) < longName) return std::string(name);
    std::string shortName(name);
    if (util::CountOf(name, "-") == 2) {
        shortName = util::GetField(1, name, "-");
        if (util::CountOf(name, "_") == 1) shortName += "_" + std::string(util::GetField(1, name, "_"));
    } else if (platform::FirstCharacters(name, 7).ends_with('_')) {
        shortName = util::GetField(0, name, "_");
    }
    return shortName.empty() ? std::string(name) : shortName;
}

std::size_t BuildMosaicIndex(std::string_view target, bool onlyMm, ui::UserInterface& userInterface) {
    auto [file, folder] = TargetFor(target);
    for (const std::string& name : platform::ListFolders(folder))
        if (!name.starts_with('.')) ShortenName(folder, name, userInterface);
    PackageIndex index;
    for (const std::string& name : platform::ListFolders(folder)) {
        bool isWanted = !onlyMm || platform::LowerAscii(name).starts_with("mm");
        if (isWanted && !name.starts_with('.')) AddPackage(index, folder, name, userInterface);
    }
    if (index.HasMembers())
        platform::ReplaceFile(file, index.Bytes());
    else
        platform::RemoveFile(file);
    return index.Bytes().size() / sizeof(GrpIndexRecord) - 1;
}

}  // namespace vexlator::background
