// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/Conversions.h"

#include <string>
#include <string_view>

namespace vexlator::startup {

/// Whether the path, relative to the current folder, is a file.
bool IsThere(std::string_view path);

/// Separators that people put between the names of several files.
inline constexpr std::string_view nameSeparators = " ,;&|";

/// The format code of a path, in capitals; "" if its file name has none.
std::string CodeOf(std::string_view path);

/// The meaning of the words of a command, by the known formats and the files on the disk.
class NamedFiles {
public:
    explicit NamedFiles(const Conversions& conversions) : conversions_(conversions) {}

    bool CanImport(std::string_view code) const;
    /// True for the code of an import or export, and for drawings.
    bool IsKnown(const std::string& code) const;
    /// True for a command whose file exists and has a known format.
    bool IsCommand(std::string_view text) const;
    /// The path itself, or a file beside it with its name and another extension, if it can be imported.
    std::string SourceBeside(const std::string& path) const;

    /// The text after the first name that ends in a known extension; "" if there is none.
    std::string_view BehindFirst(std::string_view text) const;
    /// That first name, or the whole text.
    std::string_view First(std::string_view text) const;
    /// The first of several names that is not a file; else the last one.
    std::string_view FirstMissing(std::string_view text) const;

private:
    const Conversions& conversions_;
};

}  // namespace vexlator::startup
