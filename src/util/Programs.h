// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Other programs, and facts about the user.
namespace vexlator::util {

/// Login name of the current user, at most 255 characters.
std::string UserName();
/// ISO 3166 country code of the system's locale; "UNK" if it has none.
std::string LocaleCountry();

/// Opens a document with its registered program. Does not wait, and reports no failure.
void OpenDocument(std::string_view path);

/// The CAD converter program: the user's registry value DrawingConvertAppPath under
/// SOFTWARE\VectorDraw\UserValues, else the machine's, else vdconv.exe in the program folder.
std::string VectorDrawConverterPath(std::string_view programFolder);
/// The folder of files that 32-bit programs share, else the folder of files that all programs share, from the
/// registry; "" if the registry has neither.
std::string CommonFilesFolder();

}  // namespace vexlator::util
