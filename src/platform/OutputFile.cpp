// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Files.h"
#include "platform/FolderSwap.h"
#include "platform/NativeFiles.h"
#include "platform/OutputSet.h"
#include "platform/Paths.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <set>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace vexlator::platform {

namespace fs = std::filesystem;

namespace {

constexpr std::uint64_t writeBackStep = std::uint64_t{8} << 20;

/// Deletes a temporary file or folder unless a running program writes it: every writer holds a lock on its
/// own.
void RemoveIfAbandoned(const std::string& native) {
    int descriptor = ::open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor < 0) return;
    bool isAbandoned = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    if (isAbandoned && ::unlink(native.c_str()) != 0) RemoveFlatFolder(native);
    ::close(descriptor);
}

/// Makes and locks a temporary file. Its descriptor, or -1 with the reason in errno.
int CreateTemporary(const std::string& native) {
    int descriptor = ::open(native.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (descriptor < 0) return -1;
    struct stat info {};
    ::flock(descriptor, LOCK_EX);
    if (::fstat(descriptor, &info) == 0 && info.st_nlink > 0) return descriptor;
    // Before we had the lock, another program took the file for abandoned.
    ::close(descriptor);
    errno = EEXIST;
    return -1;
}

void SyncFolder(const std::string& folder) {
    int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
}

/// Access rights of a new file: those of the file it replaces, else the user's default.
mode_t ModeFor(const std::string& target) {
    struct stat info {};
    if (::stat(target.c_str(), &info) == 0) return info.st_mode & 0777;
    mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

}  // namespace

OutputFile::OutputFile(std::string_view path, OtherCases otherCases)
    : target_(FollowLink(PathToWrite(path))), otherCases_(otherCases) {
    std::error_code ignored;
    if (fs::is_directory(target_, ignored)) throw WriteError(target_, Reason(EISDIR));
    // Replacing a file needs no right to write it, but who made it read-only wants to keep it.
    if (::faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0 && errno != ENOENT) Fail(errno);
    for (int attempt = 0; descriptor_ < 0 && attempt < 1000; ++attempt) {
        temporary_ = NewTemporaryName(target_);
        descriptor_ = CreateTemporary(temporary_);
        if (descriptor_ < 0 && errno != EEXIST) break;
    }
    if (descriptor_ < 0) Fail(errno);
    ::fchmod(descriptor_, ModeFor(target_));
    buffer_ = std::make_unique_for_overwrite<char[]>(BufferSize);
}

OutputFile::OutputFile(OutputFile&& other) noexcept
    : target_(std::move(other.target_)),
      temporary_(std::move(other.temporary_)),
      descriptor_(std::exchange(other.descriptor_, -1)),
      otherCases_(other.otherCases_),
      finished_(other.finished_),
      buffer_(std::move(other.buffer_)),
      used_(other.used_),
      flushed_(other.flushed_),
      pushed_(other.pushed_) {}

OutputFile::~OutputFile() {
    if (descriptor_ < 0) return;
    ::unlink(temporary_.c_str());
    ::close(descriptor_);
}

void OutputFile::Fail(int error) const {
    throw WriteError(target_, Reason(error));
}

void OutputFile::Put(const char* data, std::size_t size) {
    while (size > 0) {
        ssize_t written = ::write(descriptor_, data, size);
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) Fail(errno);
        data += written;
        size -= static_cast<std::size_t>(written);
        flushed_ += static_cast<std::uint64_t>(written);
    }
#ifdef SYNC_FILE_RANGE_WRITE
    // The disk starts on full steps while we go on, so that the sync at the end has little left to do.
    if (flushed_ - pushed_ >= writeBackStep) {
        ::sync_file_range(descriptor_, static_cast<off_t>(pushed_), static_cast<off_t>(flushed_ - pushed_),
                          SYNC_FILE_RANGE_WRITE);
        pushed_ = flushed_;
    }
#endif
}

void OutputFile::Flush() {
    Put(buffer_.get(), std::exchange(used_, 0));
}

void OutputFile::Write(std::string_view bytes) {
    bool large = bytes.size() > BufferSize / 2;
    if (large || bytes.size() > BufferSize - used_) Flush();
    if (large) return Put(bytes.data(), bytes.size());
    if (!bytes.empty()) std::memcpy(buffer_.get() + used_, bytes.data(), bytes.size());
    used_ += bytes.size();
}

void OutputFile::WriteAt(std::uint64_t offset, std::string_view bytes) {
    Flush();
    finished_ = false;
    while (!bytes.empty()) {
        ssize_t written = ::pwrite(descriptor_, bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) Fail(errno);
        bytes.remove_prefix(static_cast<std::size_t>(written));
        offset += static_cast<std::uint64_t>(written);
    }
}

void OutputFile::Finish() {
    if (finished_) return;
    Flush();
    buffer_.reset();
    if (::fdatasync(descriptor_) != 0 && errno != EINVAL && errno != EROFS) Fail(errno);
    finished_ = true;
}

void OutputFile::Commit() {
    Finish();
    Place();
    SyncFolder(FolderPart(target_));
}

void OutputFile::Place() {
    if (::rename(temporary_.c_str(), target_.c_str()) != 0) Fail(errno);
    ::close(std::exchange(descriptor_, -1));
    if (otherCases_ == OtherCases::Replace) RemoveOtherCases(target_);
}

void OutputSet::FinishSoFar() {
    for (; finished_ < files_.size(); ++finished_) files_[finished_].Finish();
}

void OutputSet::Commit() {
    FinishSoFar();
    std::set<std::string> folders;
    for (OutputFile& file : files_) {
        file.Place();
        folders.insert(FolderPart(file.Name()));
    }
    for (const std::string& folder : folders) SyncFolder(folder);
    files_.clear();
    finished_ = 0;
}

bool OutputSet::CommitAsFolder(std::string_view folder, const std::vector<std::string>& replaced) {
    FinishSoFar();
    std::string native = FindExisting(folder);
    std::set<std::string> known(replaced.begin(), replaced.end());
    for (const OutputFile& file : files_) known.insert(NamePart(file.temporary_));
    for (const std::string& name : EntriesOf(native))
        if (!known.contains(name)) return false;
    FolderSwap swap(native);
    if (!swap.IsPossible()) return false;
    for (const OutputFile& file : files_)
        if (!swap.Link(file.temporary_, NamePart(file.target_))) return false;
    if (!swap.TakePlace()) return false;
    SyncFolder(FolderPart(native));
    files_.clear();
    finished_ = 0;
    return true;
}

void ReplaceFile(std::string_view path, std::string_view content) {
    OutputFile file(path);
    file.Write(content);
    file.Commit();
}

void RemoveLeftovers(std::string_view folder) {
    std::string native = FindExisting(folder);
    for (const std::string& name : EntriesOf(native))
        if (IsTemporaryName(name)) RemoveIfAbandoned(native + "/" + name);
}

// --- FileLock

FileLock::FileLock(std::string_view path) {
    std::string native = FindExisting(path);
    name_ = FollowLink(native.empty() ? PathToWrite(path) : native) + ".lock";
    for (;;) {
        descriptor_ = ::open(name_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
        if (descriptor_ < 0) throw WriteError(name_, Reason(errno));
        while (::flock(descriptor_, LOCK_EX) != 0 && errno == EINTR) {
        }
        // The holder before us may have deleted the file while we waited; then our lock guards nothing.
        struct stat ours {
        }, onDisk{};
        if (::fstat(descriptor_, &ours) == 0 && ::stat(name_.c_str(), &onDisk) == 0 &&
            ours.st_ino == onDisk.st_ino && ours.st_dev == onDisk.st_dev)
            return;
        ::close(descriptor_);
    }
}

FileLock::~FileLock() {
    ::unlink(name_.c_str());
    ::close(descriptor_);
}

}  // namespace vexlator::platform
