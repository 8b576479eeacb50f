// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/FileRights.h"
#include "platform/Files.h"
#include "platform/FolderSwap.h"
#include "platform/NativeFiles.h"
#include "platform/OutputSet.h"
#include "platform/Paths.h"
#include "platform/SetJournal.h"
#include "platform/Signals.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <exception>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace vexlator::platform {

namespace fs = std::filesystem;

namespace {

/// Small enough to leave little for the sync at the end, large enough to make the requests cheap.
constexpr std::uint64_t writeBackStep = std::uint64_t{2} << 20;

bool IsLocked(const std::string& native) {
    int descriptor = ::open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor < 0) return false;
    bool locked = ::flock(descriptor, LOCK_SH | LOCK_NB) != 0;
    ::close(descriptor);
    return locked;
}

/// Deletes a temporary file or folder unless a running program writes it. Every writer holds a lock on its
/// file, or on others of the same set.
void RemoveIfAbandoned(const std::string& native) {
    int descriptor = ::open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor < 0) return;
    bool isAbandoned = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    if (isAbandoned && ::unlink(native.c_str()) != 0) RemoveSwapFolder(native);
    ::close(descriptor);
}

/// Makes and locks a temporary file. Returns its descriptor, or -1 with the reason in errno.
int CreateTemporary(const std::string& native, mode_t mode) {
    int descriptor = ::open(native.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (descriptor < 0) return -1;
    struct stat info {};
    ::flock(descriptor, LOCK_EX);
    if (::fstat(descriptor, &info) == 0 && info.st_nlink > 0) return descriptor;
    // Another program deleted the file as abandoned before we had the lock.
    ::close(descriptor);
    errno = EEXIST;
    return -1;
}

/// Runs the work in this thread and in further threads, as many as the system gives, and waits for all.
/// @throws the first exception of the threads
void InThreads(std::size_t count, const std::function<void()>& work) {
    std::exception_ptr error;
    std::mutex mutex;
    auto guarded = [&] {
        try {
            work();
        } catch (...) {
            std::lock_guard lock(mutex);
            if (!error) error = std::current_exception();
        }
    };
    std::vector<std::thread> threads;
    try {
        while (threads.size() + 1 < count) threads.emplace_back(guarded);
    } catch (const std::system_error&) {  // fewer threads do the work then
    }
    guarded();
    for (std::thread& thread : threads) thread.join();
    if (error) std::rethrow_exception(error);
}

}  // namespace

OutputFile::OutputFile(std::string_view path, OtherCases otherCases)
    : target_(FollowLinks(PathToWrite(path))), otherCases_(otherCases) {
    std::error_code ignored;
    if (fs::is_directory(target_, ignored)) throw WriteError(target_, Reason(EISDIR));
    // Replacing a file needs no right to write it, but a read-only file is meant to be kept.
    bool isNew = ::faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0;
    if (isNew && errno != ENOENT) Fail(errno);
    for (int attempt = 0; descriptor_ < 0 && attempt < 1000; ++attempt) {
        temporary_ = NewTemporaryName(target_);
        descriptor_ = CreateTemporary(temporary_, isNew ? 0666 : 0600);
        if (descriptor_ < 0 && errno != EEXIST) break;
    }
    if (descriptor_ < 0) Fail(errno);
    if (!isNew) TakeRights(descriptor_, target_);
}

OutputFile::OutputFile(OutputFile&& other) noexcept
    : target_(std::move(other.target_)),
      temporary_(std::exchange(other.temporary_, {})),
      descriptor_(std::exchange(other.descriptor_, -1)),
      otherCases_(other.otherCases_),
      finished_(other.finished_),
      set_(other.set_),
      closesBetween_(other.closesBetween_),
      buffer_(std::move(other.buffer_)),
      room_(std::exchange(other.room_, 0)),
      used_(other.used_),
      flushed_(other.flushed_),
      pushed_(other.pushed_) {}

OutputFile::~OutputFile() {
    if (!temporary_.empty()) ::unlink(temporary_.c_str());
    if (descriptor_ >= 0) ::close(descriptor_);
}

int OutputFile::Descriptor() {
    if (descriptor_ < 0) descriptor_ = ::open(temporary_.c_str(), O_RDWR | O_CLOEXEC);
    if (descriptor_ < 0) Fail(errno);
    return descriptor_;
}

void OutputFile::MakeRoom() {
    if (buffer_) return Flush();
    buffer_ = set_ ? set_->LendBuffer(*this) : std::make_unique_for_overwrite<char[]>(BufferSize);
    room_ = BufferSize;
}

std::unique_ptr<char[]> OutputFile::GiveBuffer() {
    Flush();
    room_ = 0;
    if (closesBetween_ && descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
    return std::move(buffer_);
}

void OutputFile::Fail(int error) const {
    throw WriteError(target_, Reason(error));
}

void OutputFile::Put(const char* data, std::size_t size) {
    while (size > 0) {
        ThrowIfStopped();
        ssize_t written = ::pwrite(Descriptor(), data, size, static_cast<off_t>(flushed_));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) Fail(errno);
        data += written;
        size -= static_cast<std::size_t>(written);
        flushed_ += static_cast<std::uint64_t>(written);
    }
    if (flushed_ - pushed_ >= writeBackStep) StartWriteBack();
}

/// The disk starts while we go on, so that little is left for the sync at the end.
void OutputFile::StartWriteBack() {
    if (pushed_ == flushed_) return;
#ifdef SYNC_FILE_RANGE_WRITE
    ::sync_file_range(Descriptor(), static_cast<off_t>(pushed_), static_cast<off_t>(flushed_ - pushed_),
                      SYNC_FILE_RANGE_WRITE);
#endif
    pushed_ = flushed_;
}

void OutputFile::Flush() {
    Put(buffer_.get(), std::exchange(used_, 0));
}

void OutputFile::Write(std::string_view bytes) {
    if (bytes.size() > BufferSize / 2) {
        MakeRoom();
        return Put(bytes.data(), bytes.size());
    }
    if (bytes.size() > room_ - used_) MakeRoom();
    if (!bytes.empty()) std::memcpy(buffer_.get() + used_, bytes.data(), bytes.size());
    used_ += bytes.size();
}

void OutputFile::WriteAt(std::uint64_t offset, std::string_view bytes) {
    MakeRoom();
    finished_ = false;
    while (!bytes.empty()) {
        ssize_t written = ::pwrite(Descriptor(), bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) Fail(errno);
        bytes.remove_prefix(static_cast<std::size_t>(written));
        offset += static_cast<std::uint64_t>(written);
    }
}

void OutputFile::WriteFrom(OutputFile& other, std::uint64_t offset, std::uint64_t size) {
    other.Flush();
    while (size > 0) {
        std::size_t room = std::min<std::uint64_t>(size, BufferSize);
        ssize_t got = ::pread(other.Descriptor(), Reserve(room), room, static_cast<off_t>(offset));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) other.Fail(got < 0 ? errno : EIO);
        Advance(static_cast<std::size_t>(got));
        offset += static_cast<std::uint64_t>(got);
        size -= static_cast<std::uint64_t>(got);
    }
}

void OutputFile::Push() {
    Flush();
    StartWriteBack();
    GiveBuffer();
}

void OutputFile::Finish() {
    if (finished_) return;
    Flush();
    if (::fdatasync(Descriptor()) != 0 && errno != EINVAL && errno != EROFS) Fail(errno);
    GiveBuffer();
    finished_ = true;
}

void OutputFile::Commit() {
    Finish();
    Twins twins;
    if (otherCases_ == OtherCases::Replace) twins = FindTwins({target_});
    TakeRightsOfTwin(twins);
    if (::rename(temporary_.c_str(), target_.c_str()) != 0) Fail(errno);
    RemoveTwins(twins);
    Settle();
}

void OutputFile::CommitNew() {
    Finish();
    if (int error = RenameToFreeName(temporary_, target_); error != 0) Fail(error);
    Settle();
}

void OutputFile::Settle() {
    temporary_.clear();
    ::close(std::exchange(descriptor_, -1));
    SyncFolder(FolderPart(target_));
}

void OutputFile::TakeRightsOfTwin(const Twins& twins) {
    auto twin = twins.find(target_);
    if (twin != twins.end() && ::access(target_.c_str(), F_OK) != 0) TakeRights(Descriptor(), twin->second);
}

OutputFile& OutputSet::Add(std::string_view path) {
    OutputFile& file = files_.emplace_back(path);
    file.set_ = this;
    file.closesBetween_ = files_.size() > mostOpen;
    return file;
}

std::unique_ptr<char[]> OutputSet::LendBuffer(OutputFile& file) {
    std::unique_ptr<char[]> buffer;
    if (withBuffer_.size() == mostBuffers) {
        buffer = withBuffer_.front()->GiveBuffer();
        withBuffer_.pop_front();
    }
    withBuffer_.push_back(&file);
    if (!buffer) buffer = std::make_unique_for_overwrite<char[]>(OutputFile::BufferSize);
    return buffer;
}

void OutputSet::FinishSoFar() {
    for (; pushed_ < files_.size(); ++pushed_) files_[pushed_].Push();
}

void OutputSet::Finish() {
    FinishSoFar();
    std::atomic<std::size_t> next = 0;
    InThreads(std::min(files_.size(), mostSyncs), [&] {
        for (std::size_t i = next++; i < files_.size(); i = next++) files_[i].Finish();
    });
}

void OutputSet::Forget() {
    withBuffer_.clear();
    files_.clear();
    pushed_ = 0;
}

void OutputSet::Commit() {
    Finish();
    if (files_.empty()) return;
    std::vector<std::string> targets;
    for (const OutputFile& file : files_) targets.push_back(file.target_);
    Twins twins = FindTwins(targets);
    std::vector<SetMember> members;
    std::set<std::string> folders, seen;
    for (auto file = files_.rbegin(); file != files_.rend(); ++file) {
        if (!seen.insert(file->target_).second)
            continue;  // of two files with the same name the later one stays
        file->TakeRightsOfTwin(twins);
        members.push_back({file->temporary_, file->target_, MarkOf(file->temporary_)});
        folders.insert(FolderPart(file->target_));
    }
    std::ranges::reverse(members);
    MoveTogether(FolderPart(targets.front()), std::move(members), twins);
    for (const std::string& folder : folders) SyncFolder(folder);
    Forget();
}

bool OutputSet::CommitAsFolder(std::string_view folder, const std::vector<std::string>& replaced) {
    Finish();
    std::string native = FindExisting(folder);
    std::set<std::string> known(replaced.begin(), replaced.end());
    for (const OutputFile& file : files_) known.insert(NamePart(file.temporary_));
    for (const std::string& name : EntriesOf(native))
        if (!known.contains(name)) return false;
    FolderSwap swap(native);
    if (!swap.IsPossible()) return false;
    for (const OutputFile& file : files_)
        if (!swap.Link(file.temporary_, NamePart(file.target_))) return false;
    if (!swap.TakePlace(known)) return false;
    SyncFolder(FolderPart(native));
    Forget();
    return true;
}

void ReplaceFile(std::string_view path, std::string_view content) {
    OutputFile file(path);
    file.Write(content);
    file.Commit();
}

std::string RemoveLeftovers(std::string_view folder) {
    std::string native = FindExisting(folder);
    if (native.empty()) return "";
    // Goes first, so that it deletes no file that a later move needs.
    std::vector<std::string> names = EntriesOf(native);
    std::string told = EndAbandonedMove(native);
    if (HasMove(native)) return told;
    std::erase_if(names, [](const std::string& name) { return !IsTemporaryName(name) || IsMoveList(name); });
    std::set<std::string> atWork;
    for (const std::string& name : names)
        if (IsLocked(native + "/" + name)) atWork.insert(WriterOf(name));
    for (const std::string& name : names)
        if (!atWork.contains(WriterOf(name))) RemoveIfAbandoned(native + "/" + name);
    return told;
}

// --- FileLock

FileLock::FileLock(std::string_view path, std::chrono::seconds patience) {
    std::string native = FindExisting(path);
    name_ = FollowLinks(native.empty() ? PathToWrite(path) : native) + ".lock";
    descriptor_ = OpenLocked(name_, O_RDWR | O_CREAT, 0666, patience);
    if (descriptor_ >= 0) return;
    if (errno == heldLock) throw LockHeld(name_, Reason(heldLock));
    throw WriteError(name_, Reason(errno));
}

FileLock::~FileLock() {
    ::unlink(name_.c_str());
    ::close(descriptor_);
}

ExclusiveUse::ExclusiveUse(std::string_view path, const std::string& used) {
    std::error_code ignored;
    std::string native = fs::canonical(FindExisting(path), ignored).string();
    descriptor_ = OpenLocked(native, O_RDONLY, 0, std::chrono::seconds(0));
    if (descriptor_ < 0 && errno == heldLock) throw WriteError(native, used);
}

ExclusiveUse::~ExclusiveUse() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

}  // namespace vexlator::platform
