// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// Source and target folders of photographs. Names in a drawing cannot lead outside of them.
namespace vexlator::exporter {

/// The folders and the file in a photo's name. Empty if the name means, on any system, something outside its
/// folder: "..", an absolute path, a drive letter, a server. Empty also if it contains a control character.
std::vector<std::string_view> PhotoPathParts(std::string_view name);

std::string WithBackslashes(std::string_view path);

/// The part of `path` below `folder`, with "\" between its folders; "" if it is elsewhere. Letter case and
/// the kind of separator are ignored.
std::string PathBelow(std::string_view path, std::string_view folder);

/// Deletes a link with that name, so that a file written there does not go to its target. True if there was
/// one.
bool DropLink(std::string_view path);

/// The names in folders, found in any letter case. Each folder is listed once.
class FolderNames {
public:
    /// The spelling on disk: the exact name before others. "" if there is none.
    std::string File(const std::string& folder, std::string_view name);
    std::string Folder(const std::string& folder, std::string_view name);

private:
    struct Names {
        /// By the name in lower case; several, sorted, if they differ only in letter case.
        std::unordered_map<std::string, std::vector<std::string>> files, folders;
    };
    const Names& In(const std::string& folder);

    std::unordered_map<std::string, Names> folders_;
};

/// The source folder of photos.
class PhotoSource {
public:
    explicit PhotoSource(std::string_view folder);
    /// The real path of a photo; "" if it is missing, or if a link on the way leads out of the folder.
    std::string Find(std::span<const std::string_view> parts);
    /// With its links resolved; "" if the folder does not exist.
    const std::string& Root() const { return root_; }

private:
    bool Holds(const std::string& realPath) const;

    std::string root_;
    FolderNames names_;
};

/// The target folder of photos.
class PhotoTarget {
public:
    explicit PhotoTarget(std::string_view folder) : root_(folder) {}
    /// Copies the bytes of `source` into the folder, in one step, and creates folders on the way. Replaces a
    /// file with the name in another letter case. Leaves a file with the same contents alone. Replaces a link
    /// of that name and does not follow it. False if a folder on the way is a link.
    /// @throws platform::ReadError, platform::WriteError
    bool Copy(const std::string& source, std::span<const std::string_view> parts);

private:
    std::string FolderFor(std::span<const std::string_view> parts);

    std::string root_;
    FolderNames names_;
};

}  // namespace vexlator::exporter
