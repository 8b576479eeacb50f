// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The command text: one string, as the workflow software passes it. Everything here is a function of the
/// text alone; no text, however wrong, makes any of it fail.
namespace vexlator::startup {

/// What an import's command begins with.
constexpr std::string_view importWord = "IMPORT";

/// One key=value item of a GO command.
struct GoOption {
    std::string key;
    std::string value;
    bool operator==(const GoOption&) const = default;
};

/// True for a text that begins with GO, in capitals.
bool IsGo(std::string_view text);
/// The options of a GO command, in order. An item without "=" has an empty value; a second "=" ends a value.
/// Items without a key are left out.
std::vector<GoOption> GoOptions(std::string_view goCommand);

/// True when the text holds "-QUIET" in any letter case. Takes every "-QUIET" in capitals out of the text,
/// and no blank with it.
bool TakeQuiet(std::string& text);

constexpr std::string_view yesOption = "--yes";
/// Takes --yes off a command that holds it at one of its ends; false when none does.
bool TakeYes(std::string& text);

/// The extent of a block such as "?BOX 1,2,3,4 ?", which is taken out of the text; blanks at the ends of what
/// is left go too. Nothing, and the text unchanged, when there is no block or it is not closed. One character
/// before the closing "?" belongs to the block, not to the extent: "?BOX1,2,3,4?" ends in 0, not in 4.
std::optional<config::ImportExtentBox> TakeExtent(std::string& text);

/// True for a text with an extent block that would limit nothing, or to something else than what is meant:
/// not closed, not four numbers, or a least value above its greatest.
bool ExtentIsWrong(std::string_view text);

/// Drops the first and the last character, whatever that is, of a text that begins with a double quote.
std::string_view WithoutQuotes(std::string_view text);

enum class Mode { Select, Import, Export };

/// What a command asks for once its switches are off. An empty text asks for the selection window.
Mode ModeOf(std::string_view text);

/// The text behind IMPORT and the character that follows it, without the blanks around it.
std::string_view ImportArgument(std::string_view text);

/// The source of an import, as an importer takes it.
struct ImportCommand {
    std::string code;          ///< the format code, in capitals
    std::string sourcePath;    ///< the first file, as an absolute path
    std::string sourceFolder;  ///< its folder
    std::string fileList;      ///< "" or the further files, each preceded by "|"
};
ImportCommand ParseImport(std::string_view text);

/// The drawing and the target of an export.
struct ExportCommand {
    std::string code;         ///< the format code, in capitals; "" when the command's file name has no "."
    std::string drawingPath;  ///< the drawing beside the command's path
    std::string targetPath;   ///< the folder to write to
};
ExportCommand ParseExport(std::string_view text);

}  // namespace vexlator::startup
