// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// Where photographs are taken from and put: folders that the names in a drawing cannot lead out of.
namespace vexlator::exporter {

/// The folders and the file that a photo's name consists of. None when the name means, on any system,
/// something outside the folder that it is looked up in: "..", an absolute path, a drive letter, a server; or
/// when it holds a control character.
std::vector<std::string_view> PhotoPathParts(std::string_view name);

std::string WithBackslashes(std::string_view path);

/// The part of `path` below `folder`, "\" between its folders; "" when it lies elsewhere. Letter case and the
/// kind of separator do not count.
std::string PathBelow(std::string_view path, std::string_view folder);

/// Deletes the link that stands under a name, so that a file written there does not land where it points.
/// True when there was one.
bool DropLink(std::string_view path);

/// The names in folders, found without regard to letter case. Each folder is listed once.
class FolderNames {
public:
    /// The spelling on disk: the exact name before others. "" when there is none.
    std::string File(const std::string& folder, std::string_view name);
    std::string Folder(const std::string& folder, std::string_view name);

private:
    struct Names {
        /// By the name in small letters; several when they differ by letter case only, in sorted order.
        std::unordered_map<std::string, std::vector<std::string>> files, folders;
    };
    const Names& In(const std::string& folder);

    std::unordered_map<std::string, Names> folders_;
};

/// The folder that photos are read from.
class PhotoSource {
public:
    explicit PhotoSource(std::string_view folder);
    /// The real path of a photo; "" when it is missing, or when a link on the way leads out of the folder.
    std::string Find(std::span<const std::string_view> parts);
    /// With its links resolved; "" when the folder does not exist.
    const std::string& Root() const { return root_; }

private:
    bool Holds(const std::string& realPath) const;

    std::string root_;
    FolderNames names_;
};

/// The folder that photos are copied to.
class PhotoTarget {
public:
    explicit PhotoTarget(std::string_view folder) : root_(folder) {}
    /// Copies the bytes of `source` below the folder, in one step; the folders on the way are made. A file
    /// that is there under the name in another letter case is replaced; one of the same content is left
    /// alone. A link of that name is replaced, not followed. False when a folder on the way is a link.
    /// @throws platform::ReadError, platform::WriteError
    bool Copy(const std::string& source, std::span<const std::string_view> parts);

private:
    std::string FolderFor(std::span<const std::string_view> parts);

    std::string root_;
    FolderNames names_;
};

}  // namespace vexlator::exporter
