// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Files.h"

#include "platform/AsciiCase.h"
#include "platform/FileRights.h"
#include "platform/NativeFiles.h"
#include "platform/Paths.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace vexlator::platform {

namespace fs = std::filesystem;

namespace {

/// A regular file, open for reading.
struct OpenedFile {
    explicit OpenedFile(std::string_view path) : name(FindExisting(path)) {
        if (name.empty()) throw ReadError(NativePath(path), "", Reason(ENOENT));
        // Does not block on a named pipe, before we know what the file is.
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

void SortNames(std::vector<std::string>& names) {
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        int order = CompareNoCase(a, b);
        return order != 0 ? order < 0 : a < b;
    });
}

template <typename Wanted>
std::vector<std::string> ListEntries(std::string_view folder, Wanted wanted) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator it(FindExisting(folder), error), end; !error && it != end;
         it.increment(error)) {
        std::string name = it->path().filename().string();
        if (wanted(*it) && !IsTemporaryName(name)) names.push_back(std::move(name));
    }
    SortNames(names);
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
    released_ = std::min(released_, end);
    if (end == released_) return;
    ::madvise(const_cast<std::byte*>(data_) + released_, end - released_, MADV_DONTNEED);
    released_ = end;
}

// --- Whole files

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

void AppendToFile(std::string_view path, std::string_view content) {
    std::string native = FindExisting(path);
    native = FollowLinks(native.empty() ? PathToWrite(path) : native);
    // Does not block on a named pipe, before we know what the file is.
    int descriptor = ::open(native.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK, 0666);
    if (descriptor < 0 && errno != ENXIO) throw WriteError(native, Reason(errno));
    struct stat info {};
    bool isFile = descriptor >= 0 && ::fstat(descriptor, &info) == 0 &&
                  (S_ISREG(info.st_mode) || S_ISCHR(info.st_mode));
    if (!isFile) {
        ::close(descriptor);
        throw WriteError(native, "is not a file");
    }
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

void RequireFolder(std::string_view path) {
    if (FolderExists(path)) return;
    std::string native = PathToWrite(path);
    std::error_code error;
    fs::create_directories(native, error);
    if (!FolderExists(path)) throw WriteError(native, error ? error.message() : Reason(ENOTDIR));
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
    RemoveTwins(FindTwins({to}));
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

FolderContent ReadFolder(std::string_view folder) {
    FolderContent content;
    std::string native = FindExisting(folder);
    std::error_code error;
    for (fs::directory_iterator it(native, error), end; !error && it != end;) {
        fs::file_status status = it->symlink_status(error);
        if (error) throw ReadError(it->path().string(), "", error.message());
        std::string name = it->path().filename().string();
        if (!IsTemporaryName(name) && fs::is_regular_file(status)) content.files.push_back(name);
        if (!IsTemporaryName(name) && fs::is_directory(status)) content.folders.push_back(name);
        it.increment(error);
    }
    if (error) throw ReadError(native, "", error.message());
    SortNames(content.files);
    SortNames(content.folders);
    return content;
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
