// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Where path texts become paths of the operating system. Nothing else in the program does this.
///
/// A path text is UTF-8; both `\` and `/` separate folders. On Unix `X:\rest` lies below the drives folder
/// (environment variable VEXLATOR_DRIVES, else vexlator/drives in the user's data folder; one sub-folder per
/// letter) and `\\server\share` below its sub-folder "unc"; everything else is the native path with `\` as
/// `/`.
namespace vexlator::platform {

/// The native form of a path text, without looking at the disk. This is what people are shown.
std::string NativePath(std::string_view path);

/// The native path of an existing file or folder: the exact name, else component by component without
/// regard to letter case. "" when there is none.
std::string FindExisting(std::string_view path);

/// The native path to write to: existing folders are matched without regard to case, the last component is
/// kept as given. Folders that are missing stay in the result as given. A drive's own folder is made when it
/// is missing: people expect a drive to be there.
std::string PathToWrite(std::string_view path);

/// The native path of an existing file or folder with every symbolic link on the way resolved. "" when there
/// is none, or when it cannot be reached.
std::string RealPath(std::string_view path);

/// Whether the file or folder is itself a symbolic link, be it a dangling one. Letter case counts.
bool IsLink(std::string_view path);

/// The folder for a user's own data, as desktops define it: XDG_DATA_HOME, else .local/share in the home
/// folder.
std::string UserDataFolder();
/// The same for what programs are told once: XDG_CONFIG_HOME, else .config in the home folder.
std::string UserConfigFolder();

/// The path text made absolute against the current folder; drive and server paths stay as they are.
std::string AbsolutePath(std::string_view path);

}  // namespace vexlator::platform
