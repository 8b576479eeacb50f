// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Paths as text. Both `\` and `/` separate folders. An extension is the text after the last full stop. A
/// folder part never ends in a separator.
namespace vexlator::util {

/// Text before the last separator; "" without a separator.
std::string FolderOf(std::string_view path);
/// Text after the last separator; the whole path without a separator.
std::string FileNameOf(std::string_view path);
/// Text after the last "."; "" without a ".".
std::string ExtensionOf(std::string_view path);
/// The file name without its extension.
std::string BaseNameOf(std::string_view path);
/// Cuts the path before its last ".", and appends "." and the extension unless `extension` is "". A path
/// without "." comes back unchanged. Callers pass file paths, because the last "." can be in a folder name.
std::string ChangeExtension(std::string_view path, std::string_view extension);
/// `folder`, a backslash and `name`.
std::string JoinPath(std::string_view folder, std::string_view name);
/// A name that cannot leave its folder. Separators, characters that Windows forbids and control characters
/// become "_". An empty name or a name of only full stops becomes "_". Names of Windows devices (CON, NUL,
/// COM1 ...) get the prefix "_". A name has at most 120 bytes and is cut at a whole character. Files named by
/// feature codes use this.
std::string SafeFileName(std::string_view name);
/// A name for a new copy that overwrites neither a file nor its .BAK: Survey.VDF, Survey(1).VDF, ... A number
/// in the name is replaced: Survey(3).VDF leads to Survey(1).VDF.
std::string NextFreeName(std::string_view path);

}  // namespace vexlator::util
