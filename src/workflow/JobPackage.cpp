// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "workflow/JobPackage.h"

#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "ui/UserInterface.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "workflow/ZipInput.h"
#include "workflow/ZipOutput.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vexlator::workflow {

namespace {

constexpr double settleTime = 2.5;  ///< seconds

/// The files of a folder and, with `deep`, of all its sub-folders; paths are relative, with "/".
/// @throws platform::ReadError
void CollectFiles(const std::string& folder, const std::string& relative, std::string_view pattern, bool deep,
                  std::vector<std::string>& files) {
    platform::FolderContent content = platform::ReadFolder(folder);
    for (const std::string& name : content.files)
        if (util::MatchesPattern(name, pattern)) files.push_back(relative + name);
    if (!deep) return;
    for (const std::string& name : content.folders)
        CollectFiles(util::JoinPath(folder, name), relative + name + "/", pattern, deep, files);
}

/// Names in an archive are UTF-8. Names on disk can be any bytes.
std::string EntryName(const std::string& name) {
    return platform::IsUtf8(name) ? name : platform::Utf8FromWindows1252(name);
}

void RemoveLeftovers(ui::UserInterface& userInterface, const std::string& folder) {
    if (std::string told = platform::RemoveLeftovers(folder); !told.empty()) userInterface.Report(told);
}

/// Removes files that a killed run left half unpacked.
void RemoveLeftoversBelow(ui::UserInterface& userInterface, const std::string& folder) {
    RemoveLeftovers(userInterface, folder);
    for (const std::string& name : platform::ListFolders(folder))
        if (std::string below = util::JoinPath(folder, name); !platform::IsLink(below))
            RemoveLeftoversBelow(userInterface, below);
}

struct UnpackSettings {
    int megabytes = 2048;
};

using Keys = config::Keys<UnpackSettings>;

constexpr config::KeyOf<UnpackSettings> keys[] = {
    Keys::Number("ZIP", "MaxMB", &UnpackSettings::megabytes,
                 "largest unpacked size of a tablet package or job archive, in megabytes. 0 stands for the "
                 "default. Range",
                 "2048", 0, 1 << 30),
};

}  // namespace

void frmZip2::ZipJobFolder(std::string_view pattern) {
    std::string folder = util::FolderOf(pattern), names = util::FileNameOf(pattern);
    std::string archiveName = util::FileNameOf(folder) + ".ZIP";
    RemoveLeftovers(run_.Ui(), folder);
    std::vector<std::string> files;
    CollectFiles(folder, "", names, names == "*.*" || names == "*", files);
    std::erase_if(files, [&](const std::string& file) { return platform::SameNoCase(file, archiveName); });
    if (!files.empty()) {
        ZipOutput archive(util::JoinPath(folder, archiveName));
        for (const std::string& file : files) archive.Add(EntryName(file), util::JoinPath(folder, file));
        archive.Commit();
    }
    run_.Ui().Settle(settleTime);
}

platform::MadeFiles frmZip2::UnZipJobFolder(std::string_view archive) {
    auto settings = config::ReadKeys<UnpackSettings>(run_.Installation(), keys);
    if (settings.megabytes == 0) settings = {};
    ZipInput input(archive);
    input.Check(static_cast<std::uint64_t>(settings.megabytes) << 20);
    std::string folder = util::ChangeExtension(archive, "");
    RemoveLeftoversBelow(run_.Ui(), folder);
    return input.UnpackTo(folder);
}

config::KeyList PackageKeys() {
    return config::ListOf<UnpackSettings>(keys);
}

}  // namespace vexlator::workflow
