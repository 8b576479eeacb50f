// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/FolderOutput.h"

#include "platform/Files.h"
#include "platform/NativeFiles.h"
#include "platform/Paths.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace vexlator::platform {

namespace {

/// @throws WriteError
void SyncFile(const std::string& native) {
    int file = ::open(native.c_str(), O_RDONLY | O_CLOEXEC);
    bool ok = file >= 0 && ::fsync(file) == 0;
    std::string reason = std::strerror(errno);
    if (file >= 0) ::close(file);
    if (!ok) throw WriteError(native, reason);
}

}  // namespace

FolderOutput::FolderOutput(std::string_view path) : target_(PathToWrite(path)), scratch_(path) {
    path_ = scratch_.Path() + target_.substr(target_.rfind('/'));
    if (!FolderExists(path)) return;
    swap_ = std::make_unique<FolderSwap>(target_);
    if (!swap_->IsPossible())
        throw WriteError(
            target_,
            "the folder cannot be replaced: it is a link, belongs to somebody else or has access "
            "rules of its own");
    for (const std::string& name : ListFiles(target_)) {
        CopyWholeFile(target_ + "/" + name, swap_->Beside() + "/" + name);
        replaced_.insert(name);
    }
    if (::symlink(swap_->Beside().c_str(), path_.c_str()) != 0) throw WriteError(path_, std::strerror(errno));
}

void FolderOutput::Commit() {
    for (const std::string& name : ListFiles(path_)) SyncFile(path_ + "/" + name);
    bool isInPlace =
        swap_ ? swap_->TakePlace(replaced_)
              : ::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE) == 0;
    if (!isInPlace) throw WriteError(target_, std::strerror(errno));
    SyncFolder(target_.substr(0, target_.rfind('/')));
}

}  // namespace vexlator::platform
