// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Converts path texts to paths of the operating system. No other code does this.
///
/// A path text is UTF-8. Both `\` and `/` separate folders. On Unix, `X:\rest` is in the drives folder
/// (environment variable VEXLATOR_DRIVES, else vexlator/drives in the user's data folder), which has one
/// sub-folder per letter. `\\server\share` is in its sub-folder "unc". Any other path is the native path
/// with `\` as `/`.
namespace vexlator::platform {

/// The native form of a path text, without access to the disk. Messages show this form.
std::string NativePath(std::string_view path);

/// The native path of an existing file or folder: the exact name, else component by component without regard
/// to letter case. "" if there is none.
std::string FindExisting(std::string_view path);

/// The native path to write to: existing folders are matched without regard to case. The last component and
/// missing folders stay as given. A missing folder of a drive is created, because users expect a drive to
/// exist.
std::string PathToWrite(std::string_view path);

/// The native path of an existing file or folder, with all symbolic links resolved. "" if there is none, or
/// if it cannot be reached.
std::string RealPath(std::string_view path);

/// Whether the file or folder is itself a symbolic link, even a dangling one. Letter case counts.
bool IsLink(std::string_view path);

/// The folder for a user's own data, as desktops define it: XDG_DATA_HOME, else .local/share in the home
/// folder.
std::string UserDataFolder();
/// The folder for a user's settings: XDG_CONFIG_HOME, else .config in the home folder.
std::string UserConfigFolder();

/// The path text made absolute against the current folder; drive and server paths stay as they are.
std::string AbsolutePath(std::string_view path);

}  // namespace vexlator::platform
