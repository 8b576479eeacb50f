// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/Conversions.h"

#include <string>
#include <string_view>

namespace vexlator::startup {

/// Whether the path, from the current folder, names a file.
bool IsThere(std::string_view path);

/// What people put between the names of several files.
inline constexpr std::string_view nameSeparators = " ,;&|";

/// The format code of a path, in capitals; "" when its file name has none.
std::string CodeOf(std::string_view path);

/// What the words of a command name, by the formats that there are and by what lies on the disk.
class NamedFiles {
public:
    explicit NamedFiles(const Conversions& conversions) : conversions_(conversions) {}

    bool CanImport(std::string_view code) const;
    /// True for the code of an import or export, and for that of drawings.
    bool IsKnown(const std::string& code) const;
    /// True for a command whose file is there, in a format that is known.
    bool IsCommand(std::string_view text) const;
    /// The path itself, or a file beside it with its name and another extension, if it can be imported.
    std::string SourceBeside(const std::string& path) const;

    /// What stands behind the first name that ends in a known extension; "" when nothing does.
    std::string_view BehindFirst(std::string_view text) const;
    /// That first name, or the whole text.
    std::string_view First(std::string_view text) const;
    /// The first of several names that is no file; else the last one.
    std::string_view FirstMissing(std::string_view text) const;

private:
    const Conversions& conversions_;
};

}  // namespace vexlator::startup
