// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/SetJournal.h"

#include "platform/Errors.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <fcntl.h>
#include <optional>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace vexlator::platform {

namespace {

constexpr std::string_view listName = ".set.vxtmp";

// The list is texts with a NUL behind each: five for each member, then a mark that it is whole, with the
// list's own number, and another mark once the move is being undone.
constexpr std::string_view wholeMark = "whole ", undoneMark = "undone";
constexpr std::size_t textsOfMember = 5;

bool IsThere(const std::string& native) {
    struct stat info {};
    return ::lstat(native.c_str(), &info) == 0;
}

bool Has(const std::string& native, const FileMark& mark) {
    FileMark there = MarkOf(native);
    if (mark.number == 0) there.number = 0;  // it is not known
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

/// The members that a list names; none when it never became whole, since no file has moved then.
std::vector<SetMember> MembersOf(const std::vector<std::string>& texts, const std::string& folder,
                                 const std::string& number) {
    std::vector<SetMember> members;
    std::size_t count = texts.size() / textsOfMember;
    if (texts.size() % textsOfMember == 0 || !texts[count * textsOfMember].starts_with(wholeMark))
        return members;
    // Copied to another disk, or on one without lasting numbers, files are known by the rest.
    bool numbersLast = texts[count * textsOfMember] == std::string(wholeMark) + number;
    auto path = [&](const std::string& name) { return name.empty() ? "" : folder + "/" + NamePart(name); };
    for (auto text = texts.begin(); count > 0; --count, text += textsOfMember)
        members.push_back({path(text[0]), path(text[1]), MarkFrom(text[3], numbersLast),
                           MarkFrom(text[4], numbersLast), path(text[2])});
    return members;
}

/// A folder's list, locked while the object lives. An empty one goes with it.
class List {
public:
    List(const std::string& folder, int flags)
        : folder_(folder),
          name_(folder + "/" + std::string(listName)),
          descriptor_(OpenLocked(name_, O_RDWR | flags, 0600)) {}
    ~List() {
        if (descriptor_ < 0) return;
        if (IsOurs() && Info().st_size == 0) ::unlink(name_.c_str());
        ::close(descriptor_);
    }
    List(const List&) = delete;
    List& operator=(const List&) = delete;

    bool IsOpen() const { return descriptor_ >= 0; }
    /// Anybody may put a list into a shared folder, so only this user's own is taken for one.
    bool IsOurs() const {
        struct stat info = Info();
        return S_ISREG(info.st_mode) && info.st_uid == ::geteuid() && info.st_nlink == 1;
    }
    std::string Number() const { return std::to_string(Info().st_ino); }
    /// @throws WriteError when it cannot be read
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
    /// The text is on disk when it returns 0; else an error number.
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
    /// Without type and links when it is not open.
    struct stat Info() const {
        struct stat info {};
        if (::fstat(descriptor_, &info) != 0) info = {};
        return info;
    }
    std::string folder_, name_;
    int descriptor_;
};

// --- Moving

/// Gives the old file its other name. Where a file can have one name only, the old file is without its own
/// for a moment. An error number, or 0.
int KeepOldFile(const SetMember& member) {
    struct stat info {};
    if (::lstat(member.target.c_str(), &info) != 0 || IsThere(member.kept)) return 0;
    if (S_ISDIR(info.st_mode)) return EISDIR;
    bool isKept = ::link(member.target.c_str(), member.kept.c_str()) == 0 ||
                  ::rename(member.target.c_str(), member.kept.c_str()) == 0;
    return isKept ? 0 : errno;
}

/// An error number, or 0; also for a file that has moved before, whatever came into its place then. One that
/// is nowhere ends the way forward.
int MoveForward(const SetMember& member) {
    if (member.temporary.empty()) return 0;
    if (!IsThere(member.temporary))
        return !IsThere(member.target) || Has(member.target, member.old) ? ENOENT : 0;
    int error = member.kept.empty() ? 0 : KeepOldFile(member);
    if (error == 0 && ::rename(member.temporary.c_str(), member.target.c_str()) != 0) error = errno;
    return error;
}

/// False when the new file is still in place, or nothing. A file of somebody else stays.
bool MoveBack(const SetMember& member) {
    bool isOurs = Has(member.target, member.ours), hasKept = !member.kept.empty() && IsThere(member.kept);
    if (!isOurs && IsThere(member.target)) {
        if (hasKept) ::unlink(member.kept.c_str());
        return true;
    }
    if (!hasKept) return !isOurs || !member.kept.empty() || ::unlink(member.target.c_str()) == 0;
    if (::rename(member.kept.c_str(), member.target.c_str()) == 0) return true;
    // Where files cannot be renamed any more, names may still be given and taken.
    if (isOurs) ::unlink(member.target.c_str());
    if (::link(member.kept.c_str(), member.target.c_str()) != 0) return false;
    ::unlink(member.kept.c_str());
    return true;
}

/// Which files could not be brought back; "" when all were.
std::string MoveAllBack(List& list, const std::vector<SetMember>& members) {
    list.Append(WithNul(undoneMark));
    std::string failed;
    for (const SetMember& member : members) {
        if (MoveBack(member)) continue;
        failed += (failed.empty() ? "" : ", ") + member.target;
        failed += member.kept.empty() ? " (a new file)" : " (kept as " + NamePart(member.kept) + ")";
    }
    if (failed.empty()) list.Clear();
    return failed.empty() ? "" : "not brought back: " + failed + "; the next run tries it again";
}

/// What is left to do once all members are in place.
void RemoveOldFiles(List& list, const std::vector<SetMember>& members) {
    for (const SetMember& member : members) {
        if (!member.kept.empty()) ::unlink(member.kept.c_str());
        // Where a file system makes no difference, the twin is the new file by now.
        bool isTwin = member.temporary.empty();
        if (isTwin && Has(member.target, member.old)) ::unlink(member.target.c_str());
    }
    list.Clear();
}

/// The first member that cannot be moved, with the reason; nothing when all are in place.
std::optional<std::pair<const SetMember*, int>> MoveAllForward(List& list,
                                                               const std::vector<SetMember>& members) {
    for (const SetMember& member : members)
        if (int error = MoveForward(member); error != 0) return std::pair(&member, error);
    RemoveOldFiles(list, members);
    return std::nullopt;
}

/// Somebody has put another file into the place of a member.
bool IsDelivered(const SetMember& member) {
    return !member.temporary.empty() && IsThere(member.target) && !Has(member.target, member.ours) &&
           !Has(member.target, member.old);
}

/// Its old file is gone for good, which comes after all files have moved.
bool IsPastReturn(const SetMember& member) {
    return !member.kept.empty() && !IsThere(member.kept) && !IsThere(member.temporary) &&
           !Has(member.target, member.old);
}

/// Ends the move of a killed run. @throws WriteError what the user has to know: files that are not back, or
/// that somebody else has put there
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
                         "came after a run was killed while it replaced files here; it "
                         "stays, and no file of that run does");
}

/// @throws WriteError: whose the list is, and how it goes
[[noreturn]] void RefuseList(const List& list, int error) {
    struct stat info {};
    if (::lstat(list.Name().c_str(), &info) != 0) throw WriteError(list.Name(), Reason(error));
    if (info.st_uid == ::geteuid())
        throw WriteError(list.Name(), list.IsOpen() ? "is in the way; remove it" : Reason(error));
    const passwd* user = ::getpwuid(info.st_uid);
    std::string name = user ? user->pw_name : "user " + std::to_string(info.st_uid);
    throw WriteError(list.Name(), "a run of " + name +
                                      " is putting files into place here, or was killed while it did; any "
                                      "next run of " +
                                      name + " into this folder ends that");
}

/// Makes the list free for a new set. @throws WriteError
void EndWhatWentBefore(List& list) {
    int error = errno;
    if (!list.IsOurs()) RefuseList(list, error);
    EndOldMove(list);
}

/// Adds what stands in the way of the set to it, names the old files that will be kept, and puts all on the
/// list. @throws WriteError
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
    List list(folder, O_CREAT);
    EndWhatWentBefore(list);
    Begin(list, members, twins);
    auto failure = MoveAllForward(list, members);
    if (!failure) return;
    auto [member, error] = *failure;
    std::string lost = MoveAllBack(list, members);
    throw WriteError(member->target,
                     Reason(error) + "; " + (lost.empty() ? "all files are as they were" : lost));
}

std::string EndAbandonedMove(const std::string& folder) {
    List list(folder, 0);
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
