// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Other programs, and what the system knows of its user.
namespace vexlator::util {

/// Login name of the current user, at most 255 characters.
std::string UserName();
/// ISO 3166 country code of the system's locale; "UNK" when it gives none.
std::string LocaleCountry();

/// Opens a document with the program registered for it; does not wait, and no failure is told.
void OpenDocument(std::string_view path);

/// The CAD converter program: the user's registry value DrawingConvertAppPath under
/// SOFTWARE\VectorDraw\UserValues, else the machine's, else vdconv.exe in the program folder.
std::string VectorDrawConverterPath(std::string_view programFolder);
/// The folder of files that 32-bit programs share, else that of all programs, as the registry tells; "" when
/// it does not.
std::string CommonFilesFolder();

}  // namespace vexlator::util
