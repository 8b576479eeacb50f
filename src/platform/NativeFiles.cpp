// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/NativeFiles.h"

#include "platform/AsciiCase.h"
#include "platform/Signals.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace vexlator::platform {

namespace fs = std::filesystem;

std::string Reason(int error) {
    if (error == heldLock)
        return "another program has been using it for too long; try again when that has ended";
    return std::generic_category().message(error);
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

bool IsTemporaryName(std::string_view name) {
    return name.size() > temporaryEnding.size() && name.front() == '.' && name.ends_with(temporaryEnding);
}

std::string WriterOf(std::string_view temporaryName) {
    temporaryName.remove_suffix(temporaryEnding.size());
    std::string_view last = temporaryName.substr(temporaryName.rfind('.') + 1);
    return std::string(last.substr(0, last.find('-')));
}

std::string NewTemporaryName(const std::string& native) {
    static std::atomic<unsigned> counter{0};
    return FolderPart(native) + "/." + NamePart(native).substr(0, 200) + "." + std::to_string(::getpid()) +
           "-" + std::to_string(counter++) + std::string(temporaryEnding);
}

std::vector<std::string> EntriesOf(const std::string& native) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator it(native, error), end; !error && it != end; it.increment(error))
        names.push_back(it->path().filename().string());
    return names;
}

Twins FindTwins(const std::vector<std::string>& targets) {
    std::map<std::string, std::map<std::string, std::string>> byFolder;  // maps names in lower case to names
    for (const std::string& target : targets) {
        std::string name = NamePart(target);
        byFolder[FolderPart(target)].emplace(LowerAscii(name), name);
    }
    Twins twins;
    for (const auto& [folder, names] : byFolder) {
        for (const std::string& entry : EntriesOf(folder)) {
            auto found = names.find(LowerAscii(entry));
            if (found == names.end() || found->second == entry) continue;
            std::string twin = folder + "/" + entry;
            std::error_code ignored;
            if (!fs::is_directory(twin, ignored)) twins.emplace(folder + "/" + found->second, twin);
        }
    }
    return twins;
}

void RemoveTwins(const Twins& twins) {
    std::error_code ignored;
    for (const auto& [target, twin] : twins)
        if (!fs::equivalent(target, twin, ignored)) ::unlink(twin.c_str());
}

namespace {

/// False with a reason in errno: somebody else has had the lock for too long.
bool WaitForLock(int descriptor, std::chrono::steady_clock::time_point end) {
    using namespace std::chrono;
    constexpr milliseconds longestPause{20};
    for (milliseconds pause{1}; ::flock(descriptor, LOCK_EX | LOCK_NB) != 0;
         pause = std::min(2 * pause, longestPause)) {
        ThrowIfStopped();
        if (errno != EWOULDBLOCK) return true;  // a file system without locks
        if (steady_clock::now() > end) return false;
        std::this_thread::sleep_for(pause);
    }
    return true;
}

bool HasName(int descriptor, const std::string& native) {
    struct stat ours {
    }, onDisk{};
    return ::fstat(descriptor, &ours) == 0 && ::stat(native.c_str(), &onDisk) == 0 &&
           ours.st_ino == onDisk.st_ino && ours.st_dev == onDisk.st_dev;
}

}  // namespace

int OpenLocked(const std::string& native, int flags, unsigned mode, std::chrono::seconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    for (;;) {
        int descriptor = ::open(native.c_str(), flags | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, mode);
        if (descriptor < 0) return -1;
        bool isLocked = WaitForLock(descriptor, end);
        // The holder before us may have deleted the file while we waited; then our lock guards nothing.
        if (isLocked && HasName(descriptor, native)) return descriptor;
        ::close(descriptor);
        errno = heldLock;
        if (!isLocked) return -1;
    }
}

int RenameToFreeName(const std::string& native, const std::string& newName) {
    if (::renameat2(AT_FDCWD, native.c_str(), AT_FDCWD, newName.c_str(), RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS) return errno;
    // Network file systems lack this kind of rename, but have links, which replace nothing either.
    if (::link(native.c_str(), newName.c_str()) != 0) return errno;
    ::unlink(native.c_str());
    return 0;
}

void SyncFolder(const std::string& folder) {
    int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
}

}  // namespace vexlator::platform
