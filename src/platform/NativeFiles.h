// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What the files of this folder share about native paths; for no others.
namespace vexlator::platform {

/// The system's text for an error number.
std::string Reason(int error);

/// Folder and name of a native path; "." and "/" as they need be.
std::string FolderPart(const std::string& native);
std::string NamePart(const std::string& native);

/// Files that are being written: .NAME.PROCESS-NUMBER.vxtmp.
constexpr std::string_view temporaryEnding = ".vxtmp";
bool IsTemporaryName(std::string_view name);
/// A new one, beside the file or folder.
std::string NewTemporaryName(const std::string& native);

/// The names of what a folder holds; none when it cannot be read.
std::vector<std::string> EntriesOf(const std::string& native);

/// File systems without case rules hold "a.shp" and "A.SHP" side by side; users mean one file by both.
void RemoveOtherCases(const std::string& native);

/// A link is followed, so that replacing a file writes where the link points and keeps the link.
std::string FollowLink(const std::string& native);

}  // namespace vexlator::platform
