// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Files.h"

#include "platform/Paths.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace vexlator::platform {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view temporaryEnding = ".vxtmp";
constexpr std::uint64_t writeBackStep = std::uint64_t{8} << 20;

std::string Reason(int error) {
    return std::generic_category().message(error);
}

bool IsTemporaryName(std::string_view name) {
    return name.size() > temporaryEnding.size() && name.front() == '.' && name.ends_with(temporaryEnding);
}

std::string FolderPart(const std::string& native) {
    std::size_t slash = native.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : native.substr(0, slash);
}

std::string NamePart(const std::string& native) {
    std::size_t slash = native.rfind('/');
    return slash == std::string::npos ? native : native.substr(slash + 1);
}

/// Deletes a temporary file unless a running program writes it: every writer holds a lock on its own.
void RemoveIfAbandoned(const std::string& native) {
    int descriptor = ::open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor < 0) return;
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0) ::unlink(native.c_str());
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

/// File systems without case rules hold "a.shp" and "A.SHP" side by side; users mean one file by both.
void RemoveOtherCases(const std::string& native) {
    std::string folder = FolderPart(native), name = NamePart(native);
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        std::string entry = it->path().filename().string();
        std::error_code ignored;
        if (entry != name && SameNoCase(entry, name) && !it->is_directory(ignored))
            fs::remove(it->path(), ignored);
    }
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

/// A link is followed, so that replacing a file writes where the link points and keeps the link.
std::string FollowLink(const std::string& native) {
    std::error_code error;
    if (!fs::is_symlink(fs::symlink_status(native, error))) return native;
    fs::path target = fs::weakly_canonical(native, error);
    return error ? native : target.string();
}

/// A regular file, open for reading.
struct OpenedFile {
    explicit OpenedFile(std::string_view path) : name(FindExisting(path)) {
        if (name.empty()) throw ReadError(NativePath(path), "", Reason(ENOENT));
        // A named pipe must not stop us before we know what it is.
        descriptor = ::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
        if (descriptor < 0) throw ReadError(name, "", Reason(errno));
        struct stat info {};
        bool regular = ::fstat(descriptor, &info) == 0 && S_ISREG(info.st_mode);
        if (!regular) ::close(descriptor);
        if (!regular) throw ReadError(name, "", "is not a file");
        size = static_cast<std::size_t>(info.st_size);
    }
    ~OpenedFile() { ::close(descriptor); }
    OpenedFile(const OpenedFile&) = delete;
    OpenedFile& operator=(const OpenedFile&) = delete;

    std::string name;
    int descriptor = -1;
    std::size_t size = 0;
};

template <typename Wanted>
std::vector<std::string> ListEntries(std::string_view folder, Wanted wanted) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator it(FindExisting(folder), error), end; !error && it != end;
         it.increment(error)) {
        std::string name = it->path().filename().string();
        if (wanted(*it) && !IsTemporaryName(name)) names.push_back(std::move(name));
    }
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        int order = CompareNoCase(a, b);
        return order != 0 ? order < 0 : a < b;
    });
    return names;
}

}  // namespace

// --- MappedFile

MappedFile::MappedFile(std::string_view path) {
    OpenedFile file(path);
    name_ = file.name;
    if (file.size == 0) return;
    void* data = ::mmap(nullptr, file.size, PROT_READ, MAP_PRIVATE, file.descriptor, 0);
    if (data == MAP_FAILED) throw ReadError(name_, "", Reason(errno));
    data_ = static_cast<const std::byte*>(data);
    size_ = file.size;
    ::madvise(data, size_, MADV_SEQUENTIAL);
}

MappedFile::~MappedFile() {
    if (data_) ::munmap(const_cast<std::byte*>(data_), size_);
}

MappedFile::MappedFile(MappedFile&& other) noexcept {
    *this = std::move(other);
}

MappedFile& MappedFile::operator=(MappedFile&& other) noexcept {
    std::swap(data_, other.data_);
    std::swap(size_, other.size_);
    std::swap(released_, other.released_);
    std::swap(name_, other.name_);
    return *this;
}

void MappedFile::DoneBefore(std::size_t offset) {
    constexpr std::size_t step = std::size_t{4} << 20;
    std::size_t end = std::min(offset, size_) / step * step;
    if (end <= released_) return;
    ::madvise(const_cast<std::byte*>(data_) + released_, end - released_, MADV_DONTNEED);
    released_ = end;
}

// --- OutputFile

OutputFile::OutputFile(std::string_view path, OtherCases otherCases)
    : target_(FollowLink(PathToWrite(path))), otherCases_(otherCases) {
    static std::atomic<unsigned> counter{0};
    std::error_code ignored;
    if (fs::is_directory(target_, ignored)) throw WriteError(target_, Reason(EISDIR));
    // Replacing a file needs no right to write it, but who made it read-only wants to keep it.
    if (::faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0 && errno != ENOENT) Fail(errno);
    std::string stem = FolderPart(target_) + "/." + NamePart(target_).substr(0, 200) + "." +
                       std::to_string(::getpid()) + "-";
    for (int attempt = 0; descriptor_ < 0 && attempt < 1000; ++attempt) {
        temporary_ = stem + std::to_string(counter++) + std::string(temporaryEnding);
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
    std::memcpy(buffer_.get() + used_, bytes.data(), bytes.size());
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
    if (::rename(temporary_.c_str(), target_.c_str()) != 0) Fail(errno);
    ::close(std::exchange(descriptor_, -1));
    if (otherCases_ == OtherCases::Replace) RemoveOtherCases(target_);
    SyncFolder(FolderPart(target_));
}

// --- Whole files

void RemoveLeftovers(std::string_view folder) {
    std::string native = FindExisting(folder);
    std::error_code error;
    for (fs::directory_iterator it(native, error), end; !error && it != end; it.increment(error)) {
        std::string name = it->path().filename().string();
        if (IsTemporaryName(name)) RemoveIfAbandoned(it->path().string());
    }
}

std::string ReadWholeFile(std::string_view path) {
    OpenedFile file(path);
    std::string content;
    for (std::size_t step = 1 << 16;;) {
        std::size_t size = content.size();
        content.resize(size + step);
        ssize_t got = ::read(file.descriptor, content.data() + size, step);
        content.resize(size + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        if (got == 0) return content;
        if (got < 0 && errno != EINTR) throw ReadError(file.name, "", Reason(errno));
    }
}

void ReplaceFile(std::string_view path, std::string_view content) {
    OutputFile file(path);
    file.Write(content);
    file.Commit();
}

void AppendToFile(std::string_view path, std::string_view content) {
    std::string native = FindExisting(path);
    if (native.empty()) native = PathToWrite(path);
    int descriptor = ::open(native.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    if (descriptor < 0) throw WriteError(native, Reason(errno));
    ssize_t written = ::write(descriptor, content.data(), content.size());
    int error = written < 0 ? errno : static_cast<std::size_t>(written) < content.size() ? ENOSPC : 0;
    if (::close(descriptor) != 0 && error == 0) error = errno;
    if (error != 0) throw WriteError(native, Reason(error));
}

void CopyWholeFile(std::string_view source, std::string_view target) {
    OpenedFile input(source);
    OutputFile output(target);
    for (;;) {
        ssize_t got =
            ::read(input.descriptor, output.Reserve(OutputFile::BufferSize), OutputFile::BufferSize);
        if (got == 0) break;
        if (got < 0 && errno != EINTR) throw ReadError(input.name, "", Reason(errno));
        if (got > 0) output.Advance(static_cast<std::size_t>(got));
    }
    output.Commit();
}

std::uint64_t SizeOfFile(std::string_view path) {
    std::string native = FindExisting(path);
    struct stat info {};
    if (native.empty() || ::stat(native.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return 0;
    return static_cast<std::uint64_t>(info.st_size);
}

bool FileExists(std::string_view path) {
    std::error_code ignored;
    return fs::is_regular_file(FindExisting(path), ignored);
}

bool FolderExists(std::string_view path) {
    std::error_code ignored;
    return fs::is_directory(FindExisting(path), ignored);
}

bool CreateFolder(std::string_view path) {
    if (FolderExists(path)) return true;
    std::error_code error;
    fs::create_directory(PathToWrite(path), error);
    return FolderExists(path);
}

bool CreateFolderTree(std::string_view path) {
    if (FolderExists(path)) return true;
    std::error_code error;
    fs::create_directories(PathToWrite(path), error);
    return FolderExists(path);
}

bool RemoveEmptyFolder(std::string_view path) {
    std::string native = FindExisting(path);
    return !native.empty() && ::rmdir(native.c_str()) == 0;
}

bool RemoveFile(std::string_view path) {
    std::string native = FindExisting(path);
    return !native.empty() && ::unlink(native.c_str()) == 0;
}

bool RenameFile(std::string_view source, std::string_view target) {
    std::string from = FindExisting(source), to = PathToWrite(target);
    std::error_code ignored;
    if (from.empty() || fs::is_directory(to, ignored)) return false;
    if (::rename(from.c_str(), to.c_str()) != 0) {
        if (errno != EXDEV) return false;
        try {
            CopyWholeFile(source, target);
        } catch (const std::runtime_error&) {
            return false;
        }
        ::unlink(from.c_str());
    }
    RemoveOtherCases(to);
    return true;
}

std::vector<std::string> ListFiles(std::string_view folder) {
    return ListEntries(folder, [](const fs::directory_entry& entry) {
        std::error_code ignored;
        return entry.is_regular_file(ignored);
    });
}

std::vector<std::string> ListFolders(std::string_view folder) {
    return ListEntries(folder, [](const fs::directory_entry& entry) {
        std::error_code ignored;
        return entry.is_directory(ignored);
    });
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

std::string ExecutableFolder() {
    std::error_code ignored;
    return fs::read_symlink("/proc/self/exe", ignored).parent_path().string();
}

void RaiseOpenFileLimit() {
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
    limit.rlim_cur = limit.rlim_max;
    ::setrlimit(RLIMIT_NOFILE, &limit);
}

}  // namespace vexlator::platform
