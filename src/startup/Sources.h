// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/Conversions.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::startup {

/// The sources that an IMPORT argument means. Names without a folder lie beside the first source.
struct SourceList {
    std::vector<std::string> paths;
    bool guessed =
        false;  ///< a pattern, or names without bars between, were resolved by what lies on the disk
};

/// Splits the argument at its bars. What is a file as it stands stays, blanks and all. Else blanks around it
/// go, a pattern becomes the files that match it, and names and patterns with other separators between become
/// a list when files are there for all of them; of such files those stay that can be imported, and each once.
/// What is none of these stays.
SourceList FindSources(const Conversions& conversions, std::string_view argument);

}  // namespace vexlator::startup
