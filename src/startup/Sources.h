// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/Conversions.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::startup {

/// The sources of an IMPORT argument. Names without a folder are beside the first source.
struct SourceList {
    std::vector<std::string> paths;
    bool guessed =
        false;  ///< a pattern, or names without bars between them, were resolved by the files on the disk
};

/// Splits the argument at its bars. An existing file stays, with its blanks. Otherwise blanks around it are
/// removed, and a pattern becomes the matching files. Names and patterns with other separators become a list
/// if files exist for all of them. Such files are listed once each, if they can be imported. Any other text
/// stays.
SourceList FindSources(const Conversions& conversions, std::string_view argument);

}  // namespace vexlator::startup
