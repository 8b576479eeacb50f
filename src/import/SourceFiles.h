// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"
#include "ui/UserInterface.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::importer {

/// The files of an import: `sourcePath` and the names of `fileList`, each preceded by "|" (text before the
/// first "|" is ignored). Names without a folder are beside `sourcePath`. Empty names are left out.
std::vector<std::string> SourceFiles(std::string_view sourcePath, std::string_view fileList);

/// The path of the drawing that an import of this file makes in a folder: the file's name with the extension
/// .VDF, which also replaces .gml.gz.
std::string DrawingPath(std::string_view sourcePath, std::string_view folder);

/// Opens a file for reading. On failure returns nothing and shows the message "Error Opening ", the path, a
/// line end and the system's reason.
std::optional<platform::MappedFile> OpenFile(std::string_view path, ui::UserInterface& show);

/// The same; an empty file counts as a failure too.
std::optional<platform::MappedFile> OpenTextSource(std::string_view path, ui::UserInterface& show);

}  // namespace vexlator::importer
