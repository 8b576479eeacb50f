// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/FolderSwap.h"

#include "platform/NativeFiles.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace vexlator::platform {

namespace {

/// A note file in the replaced folder, for a later run that finds the folder. It holds NUL-terminated texts:
/// the folder's name, then the names of the files to delete with it.
constexpr std::string_view noteName = ".replaced.vxtmp";

bool WriteNote(const std::string& folder, const std::set<std::string>& replaced) {
    std::string note = folder + "/" + std::string(noteName), text = NamePart(folder) + '\0';
    for (const std::string& name : replaced) text += name + '\0';
    int descriptor = ::open(note.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (descriptor < 0) return false;
    bool isWritten = ::write(descriptor, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    ::close(descriptor);
    if (!isWritten) ::unlink(note.c_str());
    return isWritten;
}

/// The texts of a folder's note. Empty if the folder has none. Nothing if the note is not this user's,
/// because only this user may say what is moved.
std::optional<std::vector<std::string>> ReadNote(const std::string& folder) {
    std::string note = folder + "/" + std::string(noteName);
    struct stat info {};
    if (::lstat(note.c_str(), &info) != 0) return std::vector<std::string>();
    if (!S_ISREG(info.st_mode) || info.st_uid != ::geteuid()) return std::nullopt;
    std::ifstream file(note, std::ios::binary);
    std::vector<std::string> texts;
    for (std::string text; std::getline(file, text, '\0');) texts.push_back(text);
    return texts;
}

/// Empties a replaced folder: files of others move to the folder that took its place.
void Empty(const std::string& folder, const std::vector<std::string>& note) {
    std::string successor = FolderPart(folder) + "/" + NamePart(note.front());
    std::set<std::string> replaced(note.begin() + 1, note.end());
    replaced.emplace(noteName);
    for (const std::string& name : EntriesOf(folder)) {
        std::string old = folder + "/" + name, carried = successor + "/" + name;
        bool goes = replaced.contains(name);
        if (!goes && ::renameat2(AT_FDCWD, old.c_str(), AT_FDCWD, carried.c_str(), RENAME_NOREPLACE) != 0)
            goes = errno == EEXIST;  // a file with the name of a new file is older than the new file
        if (goes) ::unlink(old.c_str());
    }
}

}  // namespace

FolderSwap::FolderSwap(std::string native) : native_(std::move(native)) {
    struct stat info {};
    if (::lstat(native_.c_str(), &info) != 0 || !S_ISDIR(info.st_mode) || !IsPlain()) return;
    if (info.st_uid != ::geteuid() || info.st_gid != ::getegid()) return;
    beside_ = NewTemporaryName(native_);
    if (::mkdir(beside_.c_str(), 0700) != 0) return;
    descriptor_ = ::open(beside_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor_ < 0) {
        ::rmdir(beside_.c_str());
        return;
    }
    ::flock(descriptor_, LOCK_EX);
    ::fchmod(descriptor_, info.st_mode & 07777);
}

FolderSwap::~FolderSwap() {
    if (descriptor_ < 0) return;
    RemoveSwapFolder(beside_);
    ::close(descriptor_);
}

/// Without access lists and similar attributes.
bool FolderSwap::IsPlain() const {
    return ::listxattr(native_.c_str(), nullptr, 0) <= 0;
}

bool FolderSwap::Link(const std::string& nativeFile, const std::string& name) {
    return ::linkat(AT_FDCWD, nativeFile.c_str(), descriptor_, name.c_str(), 0) == 0;
}

bool FolderSwap::TakePlace(const std::set<std::string>& replaced) {
    if (!WriteNote(native_, replaced)) return false;
    ::fsync(descriptor_);
    if (::renameat2(AT_FDCWD, beside_.c_str(), AT_FDCWD, native_.c_str(), RENAME_EXCHANGE) == 0) return true;
    ::unlink((native_ + "/" + std::string(noteName)).c_str());
    return false;
}

void RemoveSwapFolder(const std::string& native) {
    constexpr int mostLooks = 10;  // others may go on adding files to it
    std::optional<std::vector<std::string>> note = ReadNote(native);
    if (!note) return;
    for (int look = 0; look < mostLooks; ++look) {
        if (!note->empty()) {
            Empty(native, *note);
        } else {
            std::error_code ignored;
            for (const std::string& name : EntriesOf(native))
                std::filesystem::remove_all(native + "/" + name, ignored);
        }
        if (::rmdir(native.c_str()) == 0 || errno != ENOTEMPTY) return;
    }
}

}  // namespace vexlator::platform
