// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>
#include <chrono>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Native path helpers for the files of this folder only.
namespace vexlator::platform {

/// Error number for a lock that another process held for too long.
constexpr int heldLock = ETIME;
/// The system's text for an error number, or our own for `heldLock`.
std::string Reason(int error);

/// Folder and name of a native path; "." and "/" if needed.
std::string FolderPart(const std::string& native);
std::string NamePart(const std::string& native);

/// Names of files in work: .NAME.PROCESS-NUMBER.vxtmp.
constexpr std::string_view temporaryEnding = ".vxtmp";
bool IsTemporaryName(std::string_view name);
/// The common part of the temporary names of one process.
std::string WriterOf(std::string_view temporaryName);
/// A new temporary name, beside the file or folder.
std::string NewTemporaryName(const std::string& native);

/// The names in a folder; none if it cannot be read.
std::vector<std::string> EntriesOf(const std::string& native);

/// Target files and the files whose names differ in letter case only. File systems that distinguish case hold
/// "a.shp" and "A.SHP" side by side, but users mean one file.
using Twins = std::multimap<std::string, std::string>;
/// The twins of several files, with one look through each of their folders.
Twins FindTwins(const std::vector<std::string>& targets);
/// On a file system that ignores case, a twin is the target itself, and stays.
void RemoveTwins(const Twins& twins);

/// Opens a file and waits for the lock on it, at most for `patience`; it still has that name then. The
/// descriptor, or -1 with the reason in errno. A link is not followed. @throws Stopped
int OpenLocked(const std::string& native, int flags, unsigned mode,
               std::chrono::seconds patience = std::chrono::seconds(20));

/// Renames a file unless the new name exists. Returns an error number, or 0.
int RenameToFreeName(const std::string& native, const std::string& newName);

/// Syncs the renames in a folder to the disk.
void SyncFolder(const std::string& folder);

}  // namespace vexlator::platform
