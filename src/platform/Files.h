// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Errors.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Whole files: mapped for reading, replaced in one step for writing. Paths are path texts
/// (platform/Paths.h). Every function finds existing files without regard to letter case.
namespace vexlator::platform {

/// The bytes of a file, mapped into memory for the lifetime of the object. An empty file gives empty bytes.
/// If another program shortens the mapped file, the process ends with a message (after HandleFileSignals()).
class MappedFile {
public:
    /// @throws ReadError: no such file, no right to read it, or a folder.
    explicit MappedFile(std::string_view path);
    ~MappedFile();
    MappedFile(MappedFile&& other) noexcept;
    MappedFile& operator=(MappedFile&& other) noexcept;
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    std::span<const std::byte> Bytes() const { return {data_, size_}; }
    std::string_view Text() const { return {reinterpret_cast<const char*>(data_), size_}; }
    /// Native path, for messages.
    const std::string& Name() const { return name_; }
    /// Says that the bytes before `offset` are not needed soon and may leave memory. A smaller offset than
    /// before starts another pass over the file.
    void DoneBefore(std::size_t offset);

private:
    const std::byte* data_ = nullptr;
    std::size_t size_ = 0;
    std::size_t released_ = 0;
    std::string name_;
};

class OutputSet;

/// A file that appears whole or not at all. Bytes go to a temporary file beside the target; Commit() syncs it
/// and moves it into place, and removes files of the same name in another letter case. Destruction without
/// Commit() leaves the old target unchanged. RemoveLeftovers() removes the leftovers of a killed program. The
/// new file gets the owner, group, mode and access list of the old one, as far as this process may set them.
/// Other names of the old file (hard links) keep the old bytes. A symbolic link is followed, but never one in
/// a folder that others can write.
/// @throws WriteError: native path, system reason; from every member that writes, and from Commit(), when the
/// disk fills late.
class OutputFile {
public:
    /// How Commit() treats files whose names differ from the target's in letter case only. Keep skips the
    /// search in the folder, for callers that write thousands of files and know the names themselves.
    enum class OtherCases { Replace, Keep };

    explicit OutputFile(std::string_view path, OtherCases otherCases = OtherCases::Replace);
    ~OutputFile();
    OutputFile(OutputFile&& other) noexcept;
    OutputFile& operator=(OutputFile&&) = delete;
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void Write(std::string_view bytes);
    void Write(std::span<const std::byte> bytes) {
        Write(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
    }
    /// Space for up to `most` bytes inside the buffer, to be filled and then confirmed with Advance(). `most`
    /// is at most BufferSize.
    char* Reserve(std::size_t most) {
        if (room_ - used_ < most) MakeRoom();
        return buffer_.get() + used_;
    }
    void Advance(std::size_t written) { used_ += written; }
    /// Overwrites bytes at an earlier offset (a header whose totals come late).
    void WriteAt(std::uint64_t offset, std::string_view bytes);
    /// Appends the bytes of another, unfinished file.
    void WriteFrom(OutputFile& other, std::uint64_t offset, std::uint64_t size);
    /// Bytes written so far.
    std::uint64_t Size() const { return flushed_ + used_; }
    /// Flushes and syncs; a later Commit() only renames. Call it on every file of a set before the first
    /// Commit(), so that the set changes within moments.
    void Finish();
    void Commit();
    /// Puts the file into place only if no file has its name. @throws WriteError also if one has
    void CommitNew();
    /// Native path of the target, for messages.
    const std::string& Name() const { return target_; }
    /// Native path of the temporary file, for libraries that write by path.
    const std::string& TemporaryName() const { return temporary_; }

    static constexpr std::size_t BufferSize = std::size_t{1} << 17;  ///< stays in the cache

private:
    friend class OutputSet;
    void Flush();
    /// Acquires a buffer, or empties its own.
    void MakeRoom();
    std::unique_ptr<char[]> GiveBuffer();
    int Descriptor();
    /// Writes the buffer out and lets the disk start. Needs no buffer afterwards.
    void Push();
    void StartWriteBack();
    /// For a file that replaces one whose name differs in letter case only.
    void TakeRightsOfTwin(const std::multimap<std::string, std::string>& twins);
    /// The remaining steps once the file is in place.
    void Settle();
    void Put(const char* data, std::size_t size);
    [[noreturn]] void Fail(int error) const;

    std::string target_, temporary_;
    int descriptor_ = -1;
    OtherCases otherCases_;
    bool finished_ = false;
    OutputSet* set_ = nullptr;        ///< source of the buffer
    bool closesBetween_ = false;      ///< its descriptor closes with the buffer
    std::unique_ptr<char[]> buffer_;  ///< acquired at first use
    std::size_t room_ = 0;            ///< of the buffer
    std::size_t used_ = 0;
    std::uint64_t flushed_ = 0;
    std::uint64_t pushed_ = 0;
};

/// Deletes temporary files and folders of killed runs in a folder, and completes their renames. Files of
/// running programs stay.
/// @returns a line for the user if a rename could not be completed; mostly ""
std::string RemoveLeftovers(std::string_view folder);

/// The contents of a small file that other programs may write at the same time. @throws ReadError
std::string ReadWholeFile(std::string_view path);

/// Writes the whole content of a file, atomically. @throws WriteError
void ReplaceFile(std::string_view path, std::string_view content);

/// Appends to a file, and creates it if missing. One write call, so that lines of several programs do not
/// mix.
/// @throws WriteError, also for pipes and the like, which would block the run; regular files and terminals
/// are allowed
void AppendToFile(std::string_view path, std::string_view content);

/// Copies a regular file atomically. @throws ReadError, WriteError
void CopyWholeFile(std::string_view source, std::string_view target);

/// Size in bytes of a regular file; 0 if it is missing, a folder, or not accessible.
std::uint64_t SizeOfFile(std::string_view path);
bool FileExists(std::string_view path);
bool FolderExists(std::string_view path);

/// Creates one folder, or every missing folder of the path. True if the folder exists afterwards.
bool CreateFolder(std::string_view path);
bool CreateFolderTree(std::string_view path);
/// Creates every missing folder of the path. @throws WriteError with the system's reason
void RequireFolder(std::string_view path);
/// Removes an empty folder; false if it is not empty or missing.
bool RemoveEmptyFolder(std::string_view path);
/// Renames a file and replaces an existing target. Copies the file if the target is on another disk. False on
/// failure; the source still exists then.
bool RenameFile(std::string_view source, std::string_view target);
/// Deletes one file or link; false if there was none.
bool RemoveFile(std::string_view path);

/// Names (without folders) of the regular files in a folder, sorted without regard to letter case, so that
/// every run has the same order. Temporary files are left out. Empty if there is no such folder.
std::vector<std::string> ListFiles(std::string_view folder);
/// The same for sub-folders.
std::vector<std::string> ListFolders(std::string_view folder);
/// Names in a folder without links, in the order of the listings above.
struct FolderContent {
    std::vector<std::string> files, folders;
};
/// For callers that must not miss anything. @throws ReadError if a part cannot be listed or examined
FolderContent ReadFolder(std::string_view folder);

/// Somebody else keeps a lock.
struct LockHeld : WriteError {
    using WriteError::WriteError;
};

/// Holds an exclusive lock for its lifetime: on the file `path` + ".lock", which is made when missing and
/// deleted when the last holder leaves. Waits until it is free, at most for `patience`.
/// @throws LockHeld when somebody else keeps it, WriteError when the lock file cannot be made.
class FileLock {
public:
    explicit FileLock(std::string_view path, std::chrono::seconds patience = std::chrono::seconds(20));
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
    std::string name_;
    int descriptor_ = -1;
};

/// Keeps a file or folder that is there for one program of ours, by a lock on itself, which leaves nothing
/// behind. One that cannot be opened, or whose file system has no locks, is kept from nobody.
class ExclusiveUse {
public:
    /// @throws WriteError at once, with the reason `used`, when another program has it
    ExclusiveUse(std::string_view path, const std::string& used);
    ~ExclusiveUse();
    ExclusiveUse(const ExclusiveUse&) = delete;
    ExclusiveUse& operator=(const ExclusiveUse&) = delete;

private:
    int descriptor_;
};

/// The full native path of the running program's folder.
std::string ExecutableFolder();

/// Raises this process's limit of open files as far as the system allows.
void RaiseOpenFileLimit();

}  // namespace vexlator::platform
