// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/photos/PhotoFolders.h"

#include "platform/AsciiCase.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Paths.h"

#include <algorithm>

namespace vexlator::exporter {

namespace {

bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

/// Not empty, not a drive letter, and not "." or ".." in any spelling of Windows (which ignores full stops
/// and blanks at the end of a name).
bool IsPlainName(std::string_view name) {
    return name.find_first_not_of(". ") != std::string_view::npos && name.find(':') == std::string_view::npos;
}

using NameMap = std::unordered_map<std::string, std::vector<std::string>>;

NameMap ByLowerName(std::vector<std::string> names) {
    NameMap map;
    map.reserve(names.size());
    for (std::string& name : names) map[platform::LowerAscii(name)].push_back(std::move(name));
    return map;
}

std::string SpellingOf(const NameMap& map, std::string_view name) {
    auto found = map.find(platform::LowerAscii(name));
    if (found == map.end()) return "";
    const std::vector<std::string>& spellings = found->second;
    auto exact = std::find(spellings.begin(), spellings.end(), name);
    return exact != spellings.end() ? *exact : spellings.front();
}

bool HasContent(const std::string& path, std::string_view content) {
    return platform::SizeOfFile(path) == content.size() && platform::MappedFile(path).Text() == content;
}

}  // namespace

std::vector<std::string_view> PhotoPathParts(std::string_view name) {
    std::vector<std::string_view> parts;
    if (std::any_of(name.begin(), name.end(), IsControl)) return parts;
    for (std::size_t begin = 0; begin <= name.size();) {
        std::size_t end = std::min(name.find_first_of("\\/", begin), name.size());
        std::string_view part = name.substr(begin, end - begin);
        if (!IsPlainName(part)) return {};
        parts.push_back(part);
        begin = end + 1;
    }
    return parts;
}

std::string WithBackslashes(std::string_view path) {
    std::string text(path);
    std::replace(text.begin(), text.end(), '/', '\\');
    return text;
}

std::string PathBelow(std::string_view path, std::string_view folder) {
    while (!folder.empty() && IsSeparator(folder.back())) folder.remove_suffix(1);
    if (folder.empty() || path.size() <= folder.size() || !IsSeparator(path[folder.size()])) return "";
    bool below =
        platform::SameNoCase(WithBackslashes(path.substr(0, folder.size())), WithBackslashes(folder));
    return below ? WithBackslashes(path.substr(folder.size() + 1)) : "";
}

bool DropLink(std::string_view path) {
    return platform::IsLink(path) && platform::RemoveFile(path);
}

// --- FolderNames

const FolderNames::Names& FolderNames::In(const std::string& folder) {
    auto found = folders_.find(folder);
    if (found != folders_.end()) return found->second;
    Names names{ByLowerName(platform::ListFiles(folder)), ByLowerName(platform::ListFolders(folder))};
    return folders_.emplace(folder, std::move(names)).first->second;
}

std::string FolderNames::File(const std::string& folder, std::string_view name) {
    return SpellingOf(In(folder).files, name);
}

std::string FolderNames::Folder(const std::string& folder, std::string_view name) {
    return SpellingOf(In(folder).folders, name);
}

// --- PhotoSource

PhotoSource::PhotoSource(std::string_view folder) : root_(platform::RealPath(folder)) {}

bool PhotoSource::Holds(const std::string& realPath) const {
    return realPath.size() > root_.size() && realPath.starts_with(root_) &&
           (root_.ends_with('/') || realPath[root_.size()] == '/');
}

std::string PhotoSource::Find(std::span<const std::string_view> parts) {
    if (root_.empty() || parts.empty()) return "";
    std::string path = root_;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        bool last = i + 1 == parts.size();
        std::string name = last ? names_.File(path, parts[i]) : names_.Folder(path, parts[i]);
        if (name.empty()) return "";
        path = platform::RealPath(util::JoinPath(path, name));
        if (!Holds(path)) return "";
    }
    return path;
}

// --- PhotoTarget

/// The folder for the last part, created if missing; "" if a link is in the way.
std::string PhotoTarget::FolderFor(std::span<const std::string_view> parts) {
    std::string folder = root_;
    platform::RequireFolder(folder);
    for (std::string_view part : parts.first(parts.size() - 1)) {
        std::string name = names_.Folder(folder, part);
        folder = util::JoinPath(folder, name.empty() ? part : name);
        if (platform::IsLink(folder)) return "";
        if (name.empty()) platform::CreateFolder(folder);
    }
    return folder;
}

bool PhotoTarget::Copy(const std::string& source, std::span<const std::string_view> parts) {
    platform::MappedFile photo(source);
    std::string folder = FolderFor(parts);
    if (folder.empty()) return false;
    std::string name = names_.File(folder, parts.back());
    std::string path = util::JoinPath(folder, name.empty() ? parts.back() : name);
    if (!DropLink(path) && !name.empty() && HasContent(path, photo.Text())) return true;
    platform::OutputFile copy(path, platform::OutputFile::OtherCases::Keep);
    copy.Write(photo.Bytes());
    copy.Commit();
    return true;
}

}  // namespace vexlator::exporter
