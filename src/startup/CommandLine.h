// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The command text: one string, as the workflow software passes it. All functions here depend on the text
/// alone, and none fails for any text.
namespace vexlator::startup {

/// The start of an import command.
constexpr std::string_view importWord = "IMPORT";

/// One key=value item of a GO command.
struct GoOption {
    std::string key;
    std::string value;
    bool operator==(const GoOption&) const = default;
};

/// True for a text that begins with GO, in capitals.
bool IsGo(std::string_view text);
/// The options of a GO command, in order. An item without "=" has an empty value. A second "=" ends a value.
/// Items without a key are left out.
std::vector<GoOption> GoOptions(std::string_view goCommand);

/// True if the text contains "-QUIET" in any letter case. Removes every "-QUIET" in capitals from the text,
/// without blanks around it.
bool TakeQuiet(std::string& text);

constexpr std::string_view yesOption = "--yes";
/// Removes --yes from one end of a command; false if it is at neither end.
bool TakeYes(std::string& text);

/// The extent of a block such as "?BOX 1,2,3,4 ?". Removes the block from the text, with blanks at the ends
/// of the rest. Nothing, and the text unchanged, if there is no block or it is not closed. One character
/// before the closing "?" belongs to the block, not to the extent: "?BOX1,2,3,4?" ends in 0, not in 4.
std::optional<config::ImportExtentBox> TakeExtent(std::string& text);

/// True for a text with an invalid extent block: not closed, not four numbers, or a minimum above its
/// maximum.
bool ExtentIsWrong(std::string_view text);

/// Drops the first and the last character, whatever it is, of a text that begins with a double quote.
std::string_view WithoutQuotes(std::string_view text);

enum class Mode { Select, Import, Export };

/// The kind of a command without its switches. An empty text asks for the selection window.
Mode ModeOf(std::string_view text);

/// The text after IMPORT and the following character, without blanks around it.
std::string_view ImportArgument(std::string_view text);

/// The source of an import, in the form for an importer.
struct ImportCommand {
    std::string code;          ///< the format code, in capitals
    std::string sourcePath;    ///< the first file, as an absolute path
    std::string sourceFolder;  ///< its folder
    std::string fileList;      ///< "" or the further files, each preceded by "|"
};
ImportCommand ParseImport(std::string_view text);

/// The drawing and the target of an export.
struct ExportCommand {
    std::string code;         ///< the format code, in capitals; "" if the command's file name has no "."
    std::string drawingPath;  ///< the drawing beside the command's path
    std::string targetPath;   ///< the target folder
};
ExportCommand ParseExport(std::string_view text);

}  // namespace vexlator::startup
