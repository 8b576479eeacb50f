// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/SetJournal.h"

#include "platform/Errors.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <fcntl.h>
#include <optional>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace vexlator::platform {

namespace {

constexpr std::string_view listName = ".set.vxtmp";

// The list consists of NUL-terminated texts: five per member, then a mark that the list is complete, with its
// own file number. Another mark follows if the move is being undone.
constexpr std::string_view wholeMark = "whole ", undoneMark = "undone";
constexpr std::size_t textsOfMember = 5;

bool IsThere(const std::string& native) {
    struct stat info {};
    return ::lstat(native.c_str(), &info) == 0;
}

bool Has(const std::string& native, const FileMark& mark) {
    FileMark there = MarkOf(native);
    if (mark.number == 0) there.number = 0;  // not known
    return there == mark;
}

// --- The text of a list

std::string WithNul(std::string_view text) {
    return std::string(text) + '\0';
}

std::string TextOf(const FileMark& mark) {
    return WithNul(std::to_string(mark.number) + " " + std::to_string(mark.size) + " " +
                   std::to_string(mark.seconds) + " " + std::to_string(mark.nanoseconds));
}

FileMark MarkFrom(const std::string& text, bool withNumber) {
    FileMark mark;
    const char *at = text.data(), *end = at + text.size();
    for (std::int64_t* value : {&mark.number, &mark.size, &mark.seconds, &mark.nanoseconds}) {
        at = std::from_chars(at, end, *value).ptr;
        if (at != end) ++at;
    }
    if (!withNumber) mark.number = 0;
    return mark;
}

std::string TextOf(const std::vector<SetMember>& members, const std::string& folder) {
    std::string text;
    for (const SetMember& member : members)
        if (FolderPart(member.target) == folder)
            text += WithNul(NamePart(member.temporary)) + WithNul(NamePart(member.target)) +
                    WithNul(NamePart(member.kept)) + TextOf(member.ours) + TextOf(member.old);
    return text;
}

std::vector<std::string> TextsIn(std::string_view list) {
    std::vector<std::string> texts;
    for (std::size_t end; (end = list.find('\0')) != std::string_view::npos; list.remove_prefix(end + 1))
        texts.emplace_back(list.substr(0, end));
    return texts;
}

/// The members in a list; none if the list was never complete, because no file has moved then.
std::vector<SetMember> MembersOf(const std::vector<std::string>& texts, const std::string& folder,
                                 const std::string& number) {
    std::vector<SetMember> members;
    std::size_t count = texts.size() / textsOfMember;
    if (texts.size() % textsOfMember == 0 || !texts[count * textsOfMember].starts_with(wholeMark))
        return members;
    // On another disk, or on one without lasting file numbers, the other values identify a file.
    bool numbersLast = texts[count * textsOfMember] == std::string(wholeMark) + number;
    auto path = [&](const std::string& name) { return name.empty() ? "" : folder + "/" + NamePart(name); };
    for (auto text = texts.begin(); count > 0; --count, text += textsOfMember)
        members.push_back({path(text[0]), path(text[1]), MarkFrom(text[3], numbersLast),
                           MarkFrom(text[4], numbersLast), path(text[2])});
    return members;
}

/// A folder's list, locked for the lifetime of the object. An empty list is deleted with it.
class List {
public:
    /// Not open when it is missing, or when another run that moves files here does not end in time.
    List(const std::string& folder, int flags, std::chrono::seconds patience)
        : folder_(folder),
          name_(folder + "/" + std::string(listName)),
          descriptor_(OpenLocked(name_, O_RDWR | flags, 0600, patience)) {}
    ~List() {
        if (descriptor_ < 0) return;
        if (IsOurs() && Info().st_size == 0) ::unlink(name_.c_str());
        ::close(descriptor_);
    }
    List(const List&) = delete;
    List& operator=(const List&) = delete;

    bool IsOpen() const { return descriptor_ >= 0; }
    /// Anybody can put a list into a shared folder. Only this user's own lists are valid.
    bool IsOurs() const {
        struct stat info = Info();
        return S_ISREG(info.st_mode) && info.st_uid == ::geteuid() && info.st_nlink == 1;
    }
    std::string Number() const { return std::to_string(Info().st_ino); }
    /// @throws WriteError if it cannot be read
    std::vector<std::string> Texts() const {
        std::string text;
        std::array<char, 1 << 14> piece{};
        for (;;) {
            ssize_t got = ::pread(descriptor_, piece.data(), piece.size(), static_cast<off_t>(text.size()));
            if (got < 0) throw WriteError(name_, Reason(errno));
            if (got == 0) return TextsIn(text);
            text.append(piece.data(), static_cast<std::size_t>(got));
        }
    }
    /// Returns 0 if the text is on disk; else an error number.
    int Append(std::string_view text) {
        ::lseek(descriptor_, 0, SEEK_END);
        ssize_t written = ::write(descriptor_, text.data(), text.size());
        bool isShort = written >= 0 && written < static_cast<ssize_t>(text.size());
        if (isShort) return ENOSPC;
        return written < 0 || ::fdatasync(descriptor_) != 0 ? errno : 0;
    }
    void Clear() { [[maybe_unused]] int ignored = ::ftruncate(descriptor_, 0); }
    const std::string& Folder() const { return folder_; }
    const std::string& Name() const { return name_; }

private:
    /// Without type and link count if it is not open.
    struct stat Info() const {
        struct stat info {};
        if (::fstat(descriptor_, &info) != 0) info = {};
        return info;
    }
    std::string folder_, name_;
    int descriptor_;
};

// --- Moving

/// Gives the old file its other name. If a file can have only one name, the old file lacks its own name for a
/// moment. Returns an error number, or 0.
int KeepOldFile(const SetMember& member) {
    struct stat info {};
    if (::lstat(member.target.c_str(), &info) != 0 || IsThere(member.kept)) return 0;
    if (S_ISDIR(info.st_mode)) return EISDIR;
    // This takes no file away, but tells of a folder where this user cannot: one like /tmp, a file of
    // another. The other name could not go again.
    if (::rmdir(member.target.c_str()) != 0 && errno == EPERM) return EPERM;
    bool isKept = ::link(member.target.c_str(), member.kept.c_str()) == 0 ||
                  ::rename(member.target.c_str(), member.kept.c_str()) == 0;
    return isKept ? 0 : errno;
}

/// Returns an error number, or 0. 0 also for a file that has moved before, whatever replaced it since. A
/// missing file ends the move forward.
int MoveForward(const SetMember& member) {
    if (member.temporary.empty()) return 0;
    if (!IsThere(member.temporary))
        return !IsThere(member.target) || Has(member.target, member.old) ? ENOENT : 0;
    int error = member.kept.empty() ? 0 : KeepOldFile(member);
    if (error == 0 && ::rename(member.temporary.c_str(), member.target.c_str()) != 0) error = errno;
    return error;
}

/// False if the new file, or nothing, is still in place. Files of others stay.
bool MoveBack(const SetMember& member) {
    bool isOurs = Has(member.target, member.ours), hasKept = !member.kept.empty() && IsThere(member.kept);
    if (!isOurs && IsThere(member.target)) {
        if (hasKept) ::unlink(member.kept.c_str());
        return true;
    }
    if (!hasKept) return !isOurs || !member.kept.empty() || ::unlink(member.target.c_str()) == 0;
    if (::rename(member.kept.c_str(), member.target.c_str()) == 0) return true;
    // If files can no longer be renamed, adding and removing names may still work.
    if (isOurs) ::unlink(member.target.c_str());
    if (::link(member.kept.c_str(), member.target.c_str()) != 0) return false;
    ::unlink(member.kept.c_str());
    return true;
}

/// The files that could not be restored; "" if all were.
std::string MoveAllBack(List& list, const std::vector<SetMember>& members) {
    list.Append(WithNul(undoneMark));
    std::string failed;
    for (const SetMember& member : members) {
        if (MoveBack(member)) continue;
        failed += (failed.empty() ? "" : ", ") + member.target;
        failed += member.kept.empty() ? " (a new file)" : " (kept as " + NamePart(member.kept) + ")";
    }
    if (failed.empty()) list.Clear();
    return failed.empty() ? "" : "not restored: " + failed + "; the next run tries again";
}

/// The remaining steps once all members are in place.
void RemoveOldFiles(List& list, const std::vector<SetMember>& members) {
    for (const SetMember& member : members) {
        if (!member.kept.empty()) ::unlink(member.kept.c_str());
        // On a file system that ignores case, the twin is now the new file.
        bool isTwin = member.temporary.empty();
        if (isTwin && Has(member.target, member.old)) ::unlink(member.target.c_str());
    }
    list.Clear();
}

/// The first member that cannot be moved, with the reason; nothing if all are in place.
std::optional<std::pair<const SetMember*, int>> MoveAllForward(List& list,
                                                               const std::vector<SetMember>& members) {
    for (const SetMember& member : members)
        if (int error = MoveForward(member); error != 0) return std::pair(&member, error);
    RemoveOldFiles(list, members);
    return std::nullopt;
}

/// Another program has replaced a member's file.
bool IsDelivered(const SetMember& member) {
    return !member.temporary.empty() && IsThere(member.target) && !Has(member.target, member.ours) &&
           !Has(member.target, member.old);
}

/// Its old file is deleted for good. That happens only after all files have moved.
bool IsPastReturn(const SetMember& member) {
    return !member.kept.empty() && !IsThere(member.kept) && !IsThere(member.temporary) &&
           !Has(member.target, member.old);
}

/// Ends the move of a killed run.
/// @throws WriteError a message for the user: files that were not restored, or that others have put there
void EndOldMove(List& list) {
    std::vector<std::string> texts = list.Texts();
    std::vector<SetMember> members = MembersOf(texts, list.Folder(), list.Number());
    bool wasUndone = !texts.empty() && texts.back() == undoneMark;
    if (!wasUndone && std::ranges::any_of(members, IsPastReturn)) return RemoveOldFiles(list, members);
    bool isComplete = std::ranges::none_of(members, IsThere, &SetMember::temporary);
    auto delivered = isComplete ? members.end() : std::ranges::find_if(members, IsDelivered);
    bool isUndone = delivered != members.end() || wasUndone;
    if (!isUndone && !MoveAllForward(list, members)) return;
    std::string lost = MoveAllBack(list, members);
    if (!lost.empty()) throw WriteError(list.Name(), "files of a killed run are " + lost);
    if (delivered != members.end())
        throw WriteError(delivered->target,
                         "is newer than a run that was killed while it replaced files here. This file stays. "
                         "The files of that run are removed");
}

/// @throws WriteError: the owner of the list, and how to remove it
[[noreturn]] void RefuseList(const List& list, int error) {
    struct stat info {};
    if (error == heldLock) throw WriteError(list.Folder(), Reason(error));
    if (::lstat(list.Name().c_str(), &info) != 0) throw WriteError(list.Name(), Reason(error));
    if (info.st_uid == ::geteuid())
        throw WriteError(list.Name(), list.IsOpen() ? "is in the way; remove it" : Reason(error));
    const passwd* user = ::getpwuid(info.st_uid);
    std::string name = user ? user->pw_name : "user " + std::to_string(info.st_uid);
    throw WriteError(list.Name(),
                     "a run of " + name +
                         " is replacing files here, or was killed while it did; the next run of " + name +
                         " into this folder completes the replacement");
}

/// Prepares the list for a new set. @throws WriteError
void EndWhatWentBefore(List& list) {
    int error = errno;
    if (!list.IsOurs()) RefuseList(list, error);
    EndOldMove(list);
}

/// Adds the files that the set replaces, names the old files to keep, and writes all to the list.
/// @throws WriteError
void Begin(List& list, std::vector<SetMember>& members, const Twins& twins) {
    for (SetMember& member : members) {
        member.old = MarkOf(member.target);
        if (IsThere(member.target)) member.kept = NewTemporaryName(member.target + ".old");
    }
    for (const auto& [target, twin] : twins) members.push_back({"", twin, {}, MarkOf(twin)});
    std::string text = TextOf(members, list.Folder()) + WithNul(std::string(wholeMark) + list.Number());
    if (int error = list.Append(text); error != 0) {
        list.Clear();
        throw WriteError(list.Name(), Reason(error));
    }
    SyncFolder(list.Folder());
}

}  // namespace

void MoveTogether(const std::string& folder, std::vector<SetMember> members, const Twins& twins) {
    List list(folder, O_CREAT, std::chrono::seconds(20));
    EndWhatWentBefore(list);
    Begin(list, members, twins);
    auto failure = MoveAllForward(list, members);
    if (!failure) return;
    auto [member, error] = *failure;
    std::string lost = MoveAllBack(list, members);
    throw WriteError(member->target,
                     Reason(error) + "; " + (lost.empty() ? "all files are unchanged" : lost));
}

std::string EndAbandonedMove(const std::string& folder) {
    List list(folder, 0, std::chrono::seconds(0));  // a run at work has not abandoned its move
    try {
        if (list.IsOurs()) EndOldMove(list);
        return "";
    } catch (const WriteError& error) {
        return error.what();
    }
}

bool HasMove(const std::string& folder) {
    return IsThere(folder + "/" + std::string(listName));
}

bool IsMoveList(std::string_view name) {
    return name == listName;
}

}  // namespace vexlator::platform
