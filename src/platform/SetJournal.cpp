// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/SetJournal.h"

#include "platform/Errors.h"
#include "platform/NativeFiles.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace vexlator::platform {

namespace {

constexpr std::string_view listName = ".set.vxtmp", keptEnding = ".old.vxtmp";

// The list is texts with a NUL behind each: four for each member, then a mark that it is whole, and another
// one once the move is being undone.
constexpr std::string_view wholeMark = "whole", undoneMark = "undone";
constexpr std::size_t textsOfMember = 4;

bool Exists(const std::string& native) {
    struct stat info {};
    return ::lstat(native.c_str(), &info) == 0;
}

std::string NewKeptName(const std::string& target) {
    std::string name = NewTemporaryName(target);
    return name.replace(name.size() - temporaryEnding.size(), temporaryEnding.size(), keptEnding);
}

std::string WithNul(std::string_view text) {
    return std::string(text) + '\0';
}

std::string ListText(const std::string& folder, const std::vector<SetMember>& members) {
    std::string text;
    for (const SetMember& member : members)
        if (FolderPart(member.target) == folder)
            text += WithNul(NamePart(member.temporary)) + WithNul(NamePart(member.target)) +
                    WithNul(NamePart(member.kept)) + WithNul(std::to_string(member.number));
    return text + WithNul(wholeMark);
}

std::vector<std::string> TextsOf(std::string_view list) {
    std::vector<std::string> texts;
    for (std::size_t end; (end = list.find('\0')) != std::string_view::npos; list.remove_prefix(end + 1))
        texts.emplace_back(list.substr(0, end));
    return texts;
}

/// The members that the list names; none when it never became whole, since no file has moved then.
std::vector<SetMember> MembersOf(const std::string& folder, const std::vector<std::string>& texts) {
    std::vector<SetMember> members;
    if (texts.size() % textsOfMember == 0 || texts[texts.size() / textsOfMember * textsOfMember] != wholeMark)
        return members;
    for (auto text = texts.begin(); texts.end() - text >= std::ptrdiff_t{textsOfMember};
         text += textsOfMember) {
        SetMember member{folder + "/" + NamePart(text[0]), folder + "/" + NamePart(text[1])};
        if (!text[2].empty()) member.kept = folder + "/" + NamePart(text[2]);
        std::from_chars(text[3].data(), text[3].data() + text[3].size(), member.number);
        members.push_back(std::move(member));
    }
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
        if (IsOurs() && Texts().empty()) ::unlink(name_.c_str());
        ::close(descriptor_);
    }
    List(const List&) = delete;
    List& operator=(const List&) = delete;

    bool IsOpen() const { return descriptor_ >= 0; }
    /// Anybody may put a list into a shared folder, so only this user's own is taken for one.
    bool IsOurs() const {
        struct stat info {};
        return IsOpen() && ::fstat(descriptor_, &info) == 0 && S_ISREG(info.st_mode) &&
               info.st_uid == ::geteuid() && info.st_nlink == 1;
    }
    std::vector<std::string> Texts() const {
        std::string text;
        std::array<char, 1 << 14> piece{};
        for (ssize_t got = 1; got > 0;) {
            got = ::pread(descriptor_, piece.data(), piece.size(), static_cast<off_t>(text.size()));
            if (got > 0) text.append(piece.data(), static_cast<std::size_t>(got));
        }
        return TextsOf(text);
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
    std::string folder_, name_;
    int descriptor_;
};

/// Gives the old file its other name. Where a file can have one name only, the old file is without its own
/// for a moment. An error number, or 0.
int KeepOldFile(const SetMember& member) {
    struct stat info {};
    if (::lstat(member.target.c_str(), &info) != 0 || Exists(member.kept)) return 0;
    if (S_ISDIR(info.st_mode)) return EISDIR;
    bool isKept = ::link(member.target.c_str(), member.kept.c_str()) == 0 ||
                  ::rename(member.target.c_str(), member.kept.c_str()) == 0;
    return isKept ? 0 : errno;
}

bool IsInPlace(const SetMember& member) {
    struct stat info {};
    return ::lstat(member.target.c_str(), &info) == 0 && info.st_ino == member.number;
}

/// An error number, or 0; also for a file that has moved before. One that is nowhere ends the way forward.
int MoveForward(const SetMember& member) {
    if (!Exists(member.temporary)) return IsInPlace(member) ? 0 : ENOENT;
    int error = member.kept.empty() ? 0 : KeepOldFile(member);
    if (error == 0 && ::rename(member.temporary.c_str(), member.target.c_str()) != 0) error = errno;
    return error;
}

bool MoveBack(const SetMember& member) {
    if (member.kept.empty()) return !IsInPlace(member) || ::unlink(member.target.c_str()) == 0;
    if (!Exists(member.kept)) return true;
    if (::rename(member.kept.c_str(), member.target.c_str()) != 0) return false;
    ::unlink(member.kept.c_str());  // two names of one file both survive a rename
    return true;
}

/// Which files could not be brought back; "" when all were.
std::string MoveAllBack(List& list, const std::vector<SetMember>& members) {
    list.Append(WithNul(undoneMark));
    std::string failed;
    // Backwards, so that of two members of one name the first, which kept the old file, comes last.
    for (auto member = members.rbegin(); member != members.rend(); ++member)
        if (!MoveBack(*member)) failed += (failed.empty() ? "" : ", ") + member->target;
    if (failed.empty()) list.Clear();
    return failed;
}

/// The first member that cannot be moved, with the reason; nothing when all are in place.
std::optional<std::pair<const SetMember*, int>> MoveAllForward(List& list,
                                                               const std::vector<SetMember>& members) {
    for (const SetMember& member : members)
        if (int error = MoveForward(member); error != 0) return std::pair(&member, error);
    for (const SetMember& member : members)
        if (!member.kept.empty()) ::unlink(member.kept.c_str());
    list.Clear();
    return std::nullopt;
}

/// Ends the move of a killed run. Which files it leaves in the wrong place; "" when all is well.
std::string EndOldMove(List& list) {
    std::vector<std::string> texts = list.Texts();
    std::vector<SetMember> members = MembersOf(list.Folder(), texts);
    bool isUndone = !texts.empty() && texts.back() == undoneMark;
    if (isUndone || MoveAllForward(list, members)) return MoveAllBack(list, members);
    std::vector<std::string> targets;
    for (const SetMember& member : members) targets.push_back(member.target);
    RemoveTwins(FindTwins(targets));
    return "";
}

/// Makes the list free for a new set. @throws WriteError
void EndWhatWentBefore(List& list) {
    if (!list.IsOpen()) throw WriteError(list.Name(), Reason(errno));
    if (!list.IsOurs())
        throw WriteError(list.Name(),
                         "belongs to another user, whose run was killed while it put files into "
                         "place; the next run of that user ends it");
    if (std::string lost = EndOldMove(list); !lost.empty())
        throw WriteError(list.Name(), "a killed run left old files under other names: " + lost);
}

/// Names the old files that will be kept, and puts the set on the list. @throws WriteError
void Begin(List& list, std::vector<SetMember>& members) {
    for (SetMember& member : members)
        if (Exists(member.target)) member.kept = NewKeptName(member.target);
    if (int error = list.Append(ListText(list.Folder(), members)); error != 0) {
        list.Clear();
        throw WriteError(list.Name(), Reason(error));
    }
    SyncFolder(list.Folder());
}

}  // namespace

void MoveTogether(const std::string& folder, std::vector<SetMember> members) {
    List list(folder, O_CREAT);
    EndWhatWentBefore(list);
    Begin(list, members);
    auto failure = MoveAllForward(list, members);
    if (!failure) return;
    auto [member, error] = *failure;
    std::string lost = MoveAllBack(list, members);
    std::string left = lost.empty() ? "all files are as they were"
                                    : "these could not be brought back and lie beside as .NAME" +
                                          std::string(keptEnding) + ": " + lost;
    throw WriteError(member->target, Reason(error) + "; " + left);
}

bool EndAbandonedMove(const std::string& folder) {
    List list(folder, 0);
    if (list.IsOurs()) EndOldMove(list);
    return list.IsOurs() || !Exists(list.Name());
}

bool BelongsToMove(std::string_view name) {
    return name == listName || (IsTemporaryName(name) && name.ends_with(keptEnding));
}

}  // namespace vexlator::platform
