// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/FolderSwap.h"

#include "platform/NativeFiles.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>

namespace vexlator::platform {

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
    RemoveFlatFolder(beside_);
    ::close(descriptor_);
}

/// Without access lists and the like.
bool FolderSwap::IsPlain() const {
    return ::listxattr(native_.c_str(), nullptr, 0) <= 0;
}

bool FolderSwap::Link(const std::string& nativeFile, const std::string& name) {
    return ::linkat(AT_FDCWD, nativeFile.c_str(), descriptor_, name.c_str(), 0) == 0;
}

bool FolderSwap::TakePlace() {
    ::fsync(descriptor_);
    return ::renameat2(AT_FDCWD, beside_.c_str(), AT_FDCWD, native_.c_str(), RENAME_EXCHANGE) == 0;
}

void RemoveFlatFolder(const std::string& native) {
    for (const std::string& name : EntriesOf(native)) ::unlink((native + "/" + name).c_str());
    ::rmdir(native.c_str());
}

}  // namespace vexlator::platform
