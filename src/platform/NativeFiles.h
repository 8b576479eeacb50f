// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>
#include <chrono>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// What the files of this folder share about native paths; for no others.
namespace vexlator::platform {

/// Of a lock that somebody else has held for too long.
constexpr int heldLock = ETIME;
/// The system's text for an error number, or ours for `heldLock`.
std::string Reason(int error);

/// Folder and name of a native path; "." and "/" as they need be.
std::string FolderPart(const std::string& native);
std::string NamePart(const std::string& native);

/// Files that are being written: .NAME.PROCESS-NUMBER.vxtmp.
constexpr std::string_view temporaryEnding = ".vxtmp";
bool IsTemporaryName(std::string_view name);
/// What temporary files of one process share in their names.
std::string WriterOf(std::string_view temporaryName);
/// A new one, beside the file or folder.
std::string NewTemporaryName(const std::string& native);

/// The names of what a folder holds; none when it cannot be read.
std::vector<std::string> EntriesOf(const std::string& native);

/// Target files with those whose names differ by letter case only. File systems without case rules hold
/// "a.shp" and "A.SHP" side by side; users mean one file by both.
using Twins = std::multimap<std::string, std::string>;
/// The twins of several files, with one look through each of their folders.
Twins FindTwins(const std::vector<std::string>& targets);
/// Where a file system makes no difference, a twin is the target itself, and stays.
void RemoveTwins(const Twins& twins);

/// Opens a file and waits for the lock on it, at most for `patience`; the file still has that name then. The
/// descriptor, or -1 with the reason in errno. A link is not followed. @throws Stopped
int OpenLocked(const std::string& native, int flags, unsigned mode,
               std::chrono::seconds patience = std::chrono::seconds(20));

/// Renames a file unless there is one of the new name. An error number, or 0.
int RenameToFreeName(const std::string& native, const std::string& newName);

/// What has been renamed in a folder is on disk.
void SyncFolder(const std::string& folder);

}  // namespace vexlator::platform
