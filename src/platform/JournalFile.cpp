// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/JournalFile.h"

#include "platform/NativeFiles.h"
#include "platform/Paths.h"
#include "platform/Process.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vexlator::platform {

namespace {

/// Tasks of a killed run end within moments after it.
bool Lock(int descriptor) {
    constexpr int attempts = 40;
    for (int i = 0; i < attempts; ++i) {
        if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0) return true;
        Sleep(0.05);
    }
    return false;
}

}  // namespace

JournalFile::JournalFile(std::string_view path) : name_(PathToWrite(path)) {
    descriptor_ = ::open(name_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (descriptor_ < 0) Fail(Reason(errno));
    try {
        if (!Lock(descriptor_)) Fail("another run is writing this journal");
        CutTornLine();
    } catch (...) {
        ::close(descriptor_);
        throw;
    }
    SyncFolder(FolderPart(name_));
}

JournalFile::~JournalFile() {
    ::close(descriptor_);
}

void JournalFile::CutTornLine() {
    struct stat status {};
    if (::fstat(descriptor_, &status) != 0) Fail(Reason(errno));
    if (!S_ISREG(status.st_mode)) Fail("is not a regular file");
    auto end = static_cast<std::uint64_t>(status.st_size);
    std::array<char, 4096> buffer;
    while (end > size_) {
        std::uint64_t begin = end - std::min<std::uint64_t>(end, buffer.size());
        ssize_t got = ::pread(descriptor_, buffer.data(), end - begin, static_cast<off_t>(begin));
        if (got < 0) Fail(Reason(errno));
        std::string_view text(buffer.data(), static_cast<std::size_t>(got));
        std::size_t lineEnd = text.rfind('\n');
        if (lineEnd != std::string_view::npos) size_ = begin + lineEnd + 1;
        end = begin;
    }
    if (size_ < static_cast<std::uint64_t>(status.st_size) &&
        ::ftruncate(descriptor_, static_cast<off_t>(size_)) != 0)
        Fail(Reason(errno));
}

void JournalFile::Append(std::string_view lines) {
    std::string_view left = lines;
    int error = 0;
    while (!left.empty() && error == 0) {
        auto offset = static_cast<off_t>(size_ + (lines.size() - left.size()));
        ssize_t written = ::pwrite(descriptor_, left.data(), left.size(), offset);
        if (written > 0) left.remove_prefix(static_cast<std::size_t>(written));
        if (written < 0 && errno != EINTR) error = errno;
    }
    while (error == 0 && ::fdatasync(descriptor_) != 0)
        if (errno != EINTR) error = errno;
    if (error != 0) {
        [[maybe_unused]] int cut = ::ftruncate(descriptor_, static_cast<off_t>(size_));
        Fail(Reason(error));
    }
    size_ += lines.size();
}

void JournalFile::Fail(const std::string& reason) const {
    throw WriteError(name_, reason);
}

}  // namespace vexlator::platform
