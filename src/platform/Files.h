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

/// Files as whole things: mapped to be read, replaced in one step when written. Paths are path texts
/// (platform/Paths.h); every function finds existing files without regard to letter case.
namespace vexlator::platform {

/// The bytes of a file, mapped into memory while the object lives. An empty file gives empty bytes.
/// A file that shrinks while it is mapped ends the process, with a message after HandleFileSignals().
class MappedFile {
public:
    /// @throws ReadError: no such file, no right to read it, a folder.
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
    /// Tells that the bytes before `offset` are not needed soon, so that they need not stay in memory. A
    /// smaller offset than before begins another pass over the file.
    void DoneBefore(std::size_t offset);

private:
    const std::byte* data_ = nullptr;
    std::size_t size_ = 0;
    std::size_t released_ = 0;
    std::string name_;
};

class OutputSet;

/// A file that appears whole or not at all.
/// Bytes go to a temporary file beside the target; Commit() syncs it and moves it into place, and removes
/// files of the same name in another letter case. Destroyed without Commit(), it leaves the old target as it
/// was. What a killed program leaves behind is taken away by RemoveLeftovers().
/// The new file has owner, group, mode and access list of the old one, as far as this process may set them;
/// other names of the old one (hard links) keep the old bytes. A symbolic link is followed, but never one in
/// a folder that others can write.
/// @throws WriteError: native path, system reason; from every member that writes, and from Commit(), when the
/// disk fills late.
class OutputFile {
public:
    /// What Commit() does with files whose names differ from the target's by letter case only. Keep saves a
    /// look through the folder, for callers that write thousands of files and know the names themselves.
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
    /// Room for up to `most` bytes inside the buffer, to be filled and then taken with Advance(); `most` is
    /// at most BufferSize.
    char* Reserve(std::size_t most) {
        if (room_ - used_ < most) MakeRoom();
        return buffer_.get() + used_;
    }
    void Advance(std::size_t written) { used_ += written; }
    /// Overwrites bytes at an offset that has been written before (a header whose totals came late).
    void WriteAt(std::uint64_t offset, std::string_view bytes);
    /// Appends bytes that were written to another file, which is not finished.
    void WriteFrom(OutputFile& other, std::uint64_t offset, std::uint64_t size);
    /// Bytes written so far.
    std::uint64_t Size() const { return flushed_ + used_; }
    /// Flushes and syncs; a Commit() that follows only renames. Call it on every file of a set before the
    /// first is committed, so that the set changes within moments.
    void Finish();
    void Commit();
    /// Puts the file into place only where none has its name. @throws WriteError also when one has
    void CommitNew();
    /// Native path of the target, for messages.
    const std::string& Name() const { return target_; }
    /// Native path of the temporary file, for libraries that write by path.
    const std::string& TemporaryName() const { return temporary_; }

    static constexpr std::size_t BufferSize = std::size_t{1} << 17;  ///< stays in the cache

private:
    friend class OutputSet;
    void Flush();
    /// Takes a buffer, or empties the one it has.
    void MakeRoom();
    std::unique_ptr<char[]> GiveBuffer();
    int Descriptor();
    /// Writes out what there is and lets the disk begin; needs no buffer any more.
    void Push();
    void StartWriteBack();
    /// Where the file replaces another one of the same name in another letter case only.
    void TakeRightsOfTwin(const std::multimap<std::string, std::string>& twins);
    /// What is left to do once the file is in place.
    void Settle();
    void Put(const char* data, std::size_t size);
    [[noreturn]] void Fail(int error) const;

    std::string target_, temporary_;
    int descriptor_ = -1;
    OtherCases otherCases_;
    bool finished_ = false;
    OutputSet* set_ = nullptr;        ///< lends the buffer
    bool closesBetween_ = false;      ///< its descriptor goes when the buffer does
    std::unique_ptr<char[]> buffer_;  ///< taken when it is first needed
    std::size_t room_ = 0;            ///< of the buffer
    std::size_t used_ = 0;
    std::uint64_t flushed_ = 0;
    std::uint64_t pushed_ = 0;
};

/// Deletes temporary files and folders that killed runs left in a folder, and ends what they were putting
/// into place. What belongs to running programs stays.
/// @returns a line for the user when that could not be ended as it began; mostly ""
std::string RemoveLeftovers(std::string_view folder);

/// The content of a small file that other programs may write meanwhile. @throws ReadError
std::string ReadWholeFile(std::string_view path);

/// Writes the whole content of a file, atomically. @throws WriteError
void ReplaceFile(std::string_view path, std::string_view content);

/// Appends to a file, creating it; one write call, so that lines of several programs do not mix.
/// @throws WriteError, also for what is neither a file nor a terminal or the like: a pipe would hold up the
/// run
void AppendToFile(std::string_view path, std::string_view content);

/// Copies a regular file atomically. @throws ReadError, WriteError
void CopyWholeFile(std::string_view source, std::string_view target);

/// Size in bytes of a regular file; 0 when it is missing, a folder, or cannot be looked at.
std::uint64_t SizeOfFile(std::string_view path);
bool FileExists(std::string_view path);
bool FolderExists(std::string_view path);

/// Creates one folder, or every missing folder of the path. True when the folder is there afterwards.
bool CreateFolder(std::string_view path);
bool CreateFolderTree(std::string_view path);
/// Creates every missing folder of the path. @throws WriteError with the system's reason
void RequireFolder(std::string_view path);
/// Removes an empty folder; false when it is not empty or not there.
bool RemoveEmptyFolder(std::string_view path);
/// Gives a file another name, in place of a file that has that name; copies it when the target lies on
/// another disk. False when it cannot, and then the source is still there.
bool RenameFile(std::string_view source, std::string_view target);
/// Deletes one file or link; false when there was none.
bool RemoveFile(std::string_view path);

/// Names (no folders before them) of the regular files in a folder, sorted without regard to letter case, so
/// that every run sees the same order. Temporary files are left out. Empty when there is no such folder.
std::vector<std::string> ListFiles(std::string_view folder);
/// The same for sub-folders.
std::vector<std::string> ListFolders(std::string_view folder);
/// Names in a folder, links left out, in the order of the listings above.
struct FolderContent {
    std::vector<std::string> files, folders;
};
/// For callers that must not miss anything. @throws ReadError when a part cannot be listed or looked at
FolderContent ReadFolder(std::string_view folder);

/// Holds an exclusive lock for its lifetime: on the file `path` + ".lock", which is made when missing and
/// deleted when the last holder leaves. Waits until it is free, at most for `patience`.
/// @throws WriteError when the lock file cannot be made, or somebody else keeps the lock.
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

/// The full native path of the running program's folder.
std::string ExecutableFolder();

/// Lets this process hold as many open files as the system allows.
void RaiseOpenFileLimit();

}  // namespace vexlator::platform
