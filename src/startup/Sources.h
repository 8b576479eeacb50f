// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/Conversions.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::startup {

/// What people put between the names of several files.
inline constexpr std::string_view nameSeparators = " ,;&";

bool IsInSingleQuotes(std::string_view text);

/// True for a code that an importer exists for, and for TXT, which stands for one.
bool CanImport(const Conversions& conversions, std::string_view code);

/// The sources that an IMPORT argument means. Names without a folder lie beside the first source.
struct SourceList {
    std::vector<std::string> paths;
    bool guessed =
        false;  ///< a pattern, or names without bars between, were resolved by what lies on the disk
};

/// Splits the argument at its bars. What is a file as it stands stays, blanks and all. Else blanks around it
/// go, a pattern becomes the files that match it, and names with other separators between become a list when
/// all of them are there; of such files those stay that can be imported. What is none of these stays.
SourceList FindSources(const Conversions& conversions, std::string_view argument);

}  // namespace vexlator::startup
