// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "workflow/ZipInput.h"

#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Paths.h"
#include "util/Text.h"
#include "workflow/Zip.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace vexlator::workflow {

namespace {

constexpr std::uint64_t largestRatio = 1000;  ///< ratio of unpacked to packed bytes; real data is far below
constexpr std::size_t longestPath = 1024, longestName = 255;  ///< bytes

struct CloseFile {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};

/// Why a name from an archive must not be unpacked; "" if it may. Separators are "/".
std::string_view NameFault(std::string_view name) {
    if (name.empty()) return "has no name";
    if (name.front() == '/' || name.find(':') != std::string_view::npos) return "has an absolute path";
    auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; };
    if (std::any_of(name.begin(), name.end(), isControl)) return "has control characters in its name";
    if (name.size() > longestPath) return "has a path that is too long";
    for (std::size_t begin = 0; begin <= name.size();) {
        std::string_view part = name.substr(begin, name.find('/', begin) - begin);
        if (part == ".." || part == "." || part.empty()) return "has a path that leads elsewhere";
        if (part.size() > longestName) return "has a name that is too long";
        begin += part.size() + 1;
    }
    return "";
}

/// A path in lower case. Its separator sorts before every other character, so the names in a folder directly
/// follow the folder.
std::string SortKey(const std::string& path) {
    return util::ReplaceAll(platform::LowerAscii(path), "/", "\1");
}

/// The length of the common part of two paths: the same file or folders, in any letter case.
std::size_t CommonPart(std::string_view a, std::string_view b) {
    auto ends = [](std::string_view key, std::size_t at) { return at == key.size() || key[at] == '\1'; };
    std::size_t common = std::ranges::mismatch(a, b).in1 - a.begin();
    while (common > 0 && !(ends(a, common) && ends(b, common))) --common;
    return common;
}

bool IsLinkEntry(zip_t* archive, std::uint64_t index) {
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    if (zip_file_get_external_attributes(archive, index, 0, &system, &attributes) != 0) return false;
    constexpr zip_uint32_t typeMask = 0170000, link = 0120000;  // bits of a Unix file mode
    return system == ZIP_OPSYS_UNIX && ((attributes >> 16) & typeMask) == link;
}

}  // namespace

ZipInput::ZipInput(std::string_view path) : name_(platform::MappedFile(path).Name()) {
    int code = 0;
    archive_ = zip_open(name_.c_str(), ZIP_RDONLY, &code);
    if (!archive_) {
        zip_error_t error{};
        zip_error_init_with_code(&error, code);
        std::string reason = zip_error_strerror(&error);
        zip_error_fini(&error);
        throw platform::ReadError(name_, "", reason);
    }
    try {
        for (std::uint64_t i = 0; i < static_cast<std::uint64_t>(zip_get_num_entries(archive_, 0)); ++i)
            ReadEntry(i);
        RefuseTwins();
    } catch (...) {
        zip_discard(archive_);
        throw;
    }
}

ZipInput::~ZipInput() {
    zip_discard(archive_);
}

void ZipInput::ReadEntry(std::uint64_t index) {
    zip_stat_t info;
    if (zip_stat_index(archive_, index, 0, &info) != 0 || !(info.valid & ZIP_STAT_NAME))
        Refuse("entry " + std::to_string(index), zip_strerror(archive_));
    Entry entry{index, util::ReplaceAll(info.name, "\\", "/"), false,
                info.valid & ZIP_STAT_COMP_SIZE ? info.comp_size : 0};
    entry.isFolder = entry.path.ends_with('/');
    if (entry.isFolder) entry.path.pop_back();
    if (std::string_view fault = NameFault(entry.path); !fault.empty()) Refuse(info.name, std::string(fault));
    if (IsLinkEntry(archive_, index)) Refuse(info.name, "is a link");
    entries_.push_back(std::move(entry));
}

/// Equal names, and names that differ only in letter case, are neighbours in the order of their keys.
void ZipInput::RefuseTwins() const {
    std::vector<std::pair<std::string, const Entry*>> sorted;
    for (const Entry& entry : entries_) sorted.emplace_back(SortKey(entry.path), &entry);
    std::ranges::sort(sorted);
    for (std::size_t i = 1; i < sorted.size(); ++i) {
        const auto& [key, entry] = sorted[i - 1];
        const auto& [nextKey, next] = sorted[i];
        std::size_t common = CommonPart(key, nextKey);
        if (key == nextKey || entry->path.compare(0, common, next->path, 0, common) != 0)
            Refuse(next->path, "occurs twice, in whatever letter case");
        if (common == key.size() && !entry->isFolder) Refuse(next->path, "lies in a folder that is a file");
    }
}

void ZipInput::Refuse(std::string_view entry, const std::string& reason) const {
    throw platform::ReadError(name_, std::string(platform::CutUtf8(entry, longestName)), reason);
}

template <typename Take>
void ZipInput::ReadContent(const Entry& entry, Take take) const {
    constexpr std::size_t pieceSize = std::size_t{256} << 10;
    std::unique_ptr<zip_file_t, CloseFile> file(zip_fopen_index(archive_, entry.index, 0));
    if (!file) Refuse(entry.path, zip_strerror(archive_));
    auto piece = std::make_unique_for_overwrite<char[]>(pieceSize);
    for (;;) {
        zip_int64_t got = zip_fread(file.get(), piece.get(), pieceSize);
        if (got < 0) Refuse(entry.path, zip_file_strerror(file.get()));
        if (got == 0) return;
        take(std::string_view(piece.get(), static_cast<std::size_t>(got)));
    }
}

void ZipInput::Check(std::uint64_t mostBytes) const {
    std::uint64_t total = 0;
    for (const Entry& entry : entries_) {
        if (entry.isFolder) continue;
        std::uint64_t size = 0;
        ReadContent(entry, [&](std::string_view piece) {
            size += piece.size();
            total += piece.size();
            if (total > mostBytes)
                Refuse(entry.path, "goes beyond " + std::to_string(mostBytes) + " bytes unpacked");
            if (size / largestRatio > entry.packedSize)
                Refuse(entry.path, "unpacks to more than 1000 times its size");
        });
    }
}

void ZipInput::RefuseLinks(const std::string& folder, const Entry& entry) const {
    std::string path = folder;
    for (std::size_t i = 0; i <= util::CountOf(entry.path, "/"); ++i) {
        path = util::JoinPath(path, util::GetField(i, entry.path, "/"));
        std::string existing = platform::FindExisting(path);
        if (!existing.empty() && platform::IsLink(existing))
            Refuse(entry.path, "would be written through the link " + existing);
    }
}

bool ZipInput::IsThere(const Entry& entry, const std::string& path) const {
    if (!platform::FileExists(path)) return false;
    platform::MappedFile file(path);
    std::string_view left = file.Text();
    bool isSame = true;
    ReadContent(entry, [&](std::string_view piece) {
        isSame = isSame && left.starts_with(piece);
        left.remove_prefix(std::min(piece.size(), left.size()));
    });
    if (isSame && left.empty()) return true;
    throw platform::WriteError(
        file.Name(), "exists already and would be replaced by that of " + name_ + "; rename or move it");
}

platform::MadeFiles ZipInput::UnpackTo(std::string_view folderPath) const {
    std::string folder(folderPath);
    // A new folder is empty. A check would cost a walk through the folder for each file.
    bool fresh = platform::FindExisting(folder).empty();
    platform::MadeFiles made;
    try {
        made.Folder(folder);
        for (const Entry& entry : entries_) {
            if (!fresh) RefuseLinks(folder, entry);
            std::string path = util::JoinPath(folder, entry.path);
            made.Folder(entry.isFolder ? path : util::FolderOf(path));
            if (!entry.isFolder && (fresh || !IsThere(entry, path))) Unpack(entry, path, made);
        }
    } catch (...) {
        made.Remove();
        throw;
    }
    return made;
}

void ZipInput::Unpack(const Entry& entry, const std::string& path, platform::MadeFiles& made) const {
    platform::OutputFile file(path);
    ReadContent(entry, [&](std::string_view piece) { file.Write(piece); });
    made.Commit(file);
}

}  // namespace vexlator::workflow
