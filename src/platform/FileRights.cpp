// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/FileRights.h"

#include "platform/Errors.h"
#include "platform/NativeFiles.h"

#include <cerrno>
#include <filesystem>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace vexlator::platform {

namespace fs = std::filesystem;

namespace {

constexpr const char* accessList = "system.posix_acl_access";

/// A file without an access list gets none from its folder's default.
void TakeAccessList(int descriptor, const std::string& from) {
    ssize_t size = ::getxattr(from.c_str(), accessList, nullptr, 0);
    std::vector<char> list(size > 0 ? static_cast<std::size_t>(size) : 0);
    if (size > 0) size = ::getxattr(from.c_str(), accessList, list.data(), list.size());
    if (size > 0)
        ::fsetxattr(descriptor, accessList, list.data(), static_cast<std::size_t>(size), 0);
    else
        ::fremovexattr(descriptor, accessList);
}

/// Users other than this user and root. Nothing keeps root out.
bool OthersCanWrite(const std::string& folder) {
    struct stat info {};
    if (::stat(folder.empty() ? "." : folder.c_str(), &info) != 0) return false;
    bool isOthers = info.st_uid != ::geteuid() && info.st_uid != 0;
    return isOthers || (info.st_mode & (S_IWGRP | S_IWOTH)) != 0;
}

/// A walk along a path that replaces each link by its target.
class Way {
public:
    explicit Way(const std::string& native) : native_(native) { Prepend(native); }

    /// Walks to the end. Returns whether the last part was a link.
    bool Walk() {
        bool endsAtLink = false;
        while (!left_.empty()) {
            bool isLast = left_.size() == 1;
            fs::path part = std::exchange(left_.back(), {});
            left_.pop_back();
            std::error_code ignored;
            bool isLink = fs::is_symlink(fs::symlink_status(done_ / part, ignored));
            if (isLink)
                Follow(done_ / part);
            else
                done_ /= part;
            endsAtLink |= isLink && isLast;
        }
        return endsAtLink;
    }
    std::string End() const { return done_.string(); }

private:
    void Follow(const fs::path& link) {
        constexpr int mostLinks = 40;  // limit of the system
        if (OthersCanWrite(done_.string()))
            throw WriteError(link.string(),
                             "is a symbolic link in a folder that others can write, and is not "
                             "followed; name the place itself");
        if (++links_ > mostLinks) throw WriteError(native_, Reason(ELOOP));
        std::error_code error;
        fs::path target = fs::read_symlink(link, error);
        if (error) throw WriteError(native_, error.message());
        if (target.is_absolute()) done_.clear();
        Prepend(target);
    }
    void Prepend(const fs::path& path) {
        std::vector<fs::path> parts(path.begin(), path.end());
        left_.insert(left_.end(), parts.rbegin(), parts.rend());
    }

    std::string native_;
    fs::path done_;
    std::vector<fs::path> left_;  ///< next component last
    int links_ = 0;
};

}  // namespace

void TakeRights(int descriptor, const std::string& from) {
    struct stat old {
    }, now{};
    if (::stat(from.c_str(), &old) != 0) return;
    if (::fchown(descriptor, old.st_uid, old.st_gid) != 0) {
        // Only root can give a file away, but the file's group may be one of the user's groups.
        [[maybe_unused]] int ignored = ::fchown(descriptor, static_cast<uid_t>(-1), old.st_gid);
    }
    mode_t mode = old.st_mode & 07777;
    if (::fstat(descriptor, &now) != 0 || now.st_uid != old.st_uid) mode &= ~mode_t{S_ISUID};
    if (now.st_gid != old.st_gid) mode &= ~mode_t{S_ISGID};
    TakeAccessList(descriptor, from);
    ::fchmod(descriptor, mode);
}

std::string FollowLinks(const std::string& native) {
    Way way(native);
    return way.Walk() ? way.End() : native;
}

}  // namespace vexlator::platform
