// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Attribute templates (.ATP): one text file per feature code that lists the code's attributes.
///
///     [26,09]                                 header, not interpreted
///     [01,01]NAME        ,C32.00              name, type letter, two digits of width, ".", two of decimals
///     [01,02]DEPTH<DPTH> ,N06.2               a second, short name for GIS tables
///     [01,03]TYPE        ,C20.00=MAIN,SPUR    what follows "=" is for the device
///     'STYLE=0,VALVE,255                      how features look: field 1 is the symbol, 2 the colour
///
/// Text is UTF-8 when the file is valid UTF-8, else Windows-1252. A template of the user's own, in LocalATPs
/// below the configuration folder, goes before the shared one in ATPDirectory. Feature codes come from
/// drawings, so they pass through util::SafeFileName before they name a file.
namespace vexlator::drawing {

/// Templates are small; what is larger is some other file. Readers throw platform::ReadError for it, as for a
/// template that is there but cannot be read. A missing template is no error.
constexpr std::size_t largestTemplate = std::size_t{1} << 20;

/// One attribute of a feature code.
struct AtpField {
    std::string name;       ///< the device's name, trimmed
    std::string shortName;  ///< the second form, in angle brackets; "" if there is none
    char type = 'C';        ///< C text, N and F number, D date, X long text
    std::string width;      ///< up to two digits; an empty width means something of its own for type D
    std::string decimals;   ///< up to two digits
    int Width() const;      ///< 0 to 99; 0 when it is no number
    int Decimals() const;   ///< 0 to 99
};

/// What to do with fields whose first name is "NULL": Drop, unless the caller may use the second name.
enum class NullFields { Drop, Keep };

/// The template to use for a feature code: the local one when it is there and not empty, else the shared one,
/// whether it exists or not.
std::string AtpPathFor(const config::Run& run, std::string_view featureCode);

/// The fields in order; none when the file is missing or empty. @throws platform::ReadError
std::vector<AtpField> ReadAtpFields(std::string_view templatePath, NullFields nulls = NullFields::Drop);
std::vector<AtpField> ParseAtpFields(std::string_view text, NullFields nulls = NullFields::Drop);

/// The style text of the code's shared template, "" if none. @throws platform::ReadError
std::string ReadAtpStyle(const config::Run& run, std::string_view featureCode);

/// The code whose template applies: a shared template of at most 16 bytes, as in "MH2=", names another code.
/// @throws platform::ReadError
std::string ResolveAtpAlias(const config::Run& run, std::string_view featureCode);

/// A name as templates hold it: characters that a reader would take for syntax become "_", and so that it is
/// not dropped, NULL becomes NULL_.
std::string AtpNameOf(std::string name);
/// Templates that are generated for imports cut names to so many characters.
constexpr std::size_t importedNameLength = 12;

/// Writes a template that lists the names, all as C32.00; without names a single field HANDLE.
/// Characters that a reader would take for syntax become "_". @throws platform::WriteError
void WriteAtpFromFields(std::string_view templatePath, std::span<const std::string> names);

/// Writes a template of text fields for an import, unless there is one already: when [GENERICIN] GenATP is on
/// and the person agrees. Names take exactly 12 characters, widths are kept within 1 to 99. `widths` is as
/// long as `names`. @throws platform::WriteError
void GenerateAtp(config::Run& run, std::string_view templatePath, std::span<const std::string> names,
                 std::span<const int> widths);

config::KeyList TemplateKeys();

/// Turns the list of names in the file of the given path with extension XOT into a template with extension
/// ATX, and returns the template to use: the ATX, or the path itself when there is no such list.
/// @throws platform::ReadError, platform::WriteError
std::string ConvertXotToAtx(std::string_view path);

}  // namespace vexlator::drawing
