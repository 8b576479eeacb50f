// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Paths as text: both `\` and `/` separate folders, an extension is the text after the last full stop, a
/// folder part never ends in a separator.
namespace vexlator::util {

/// Text before the last separator; "" when there is none.
std::string FolderOf(std::string_view path);
/// Text after the last separator; the whole path when there is none.
std::string FileNameOf(std::string_view path);
/// Text after the last "."; "" when there is none.
std::string ExtensionOf(std::string_view path);
/// The file name without its extension.
std::string BaseNameOf(std::string_view path);
/// The path cut before its last "." and, unless `extension` is "", followed by "." and the extension. A path
/// without "." comes back unchanged; the last "." may stand in a folder name, callers pass file paths.
std::string ChangeExtension(std::string_view path, std::string_view extension);
/// `folder`, a backslash and `name`.
std::string JoinPath(std::string_view folder, std::string_view name);
/// A name that cannot leave its folder: separators, characters that Windows forbids and control characters
/// become "_"; a name that is empty or only full stops becomes "_"; names of Windows devices (CON, NUL, COM1
/// ...) get a "_" in front; at most 120 bytes, cut at a whole character. Feature codes name files through
/// this.
std::string SafeFileName(std::string_view name);
/// A name for a new copy that overwrites neither a file nor its .BAK: Survey.VDF, Survey(1).VDF, ... A number
/// that the name already carries is replaced: Survey(3).VDF leads to Survey(1).VDF.
std::string NextFreeName(std::string_view path);

}  // namespace vexlator::util
