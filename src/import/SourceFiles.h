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

/// The files of an import: `sourcePath` and the names of `fileList`, each preceded by "|" (what stands before
/// the first "|" does not count). Names without a folder lie beside `sourcePath`; empty ones are left out.
std::vector<std::string> SourceFiles(std::string_view sourcePath, std::string_view fileList);

/// The drawing that an import of this file makes in a folder: the file's name with .VDF instead of its
/// extension, and instead of .gml.gz.
std::string DrawingPath(std::string_view sourcePath, std::string_view folder);

/// Opens a file for reading. On failure nothing is returned, and the message "Error Opening ", the path, a
/// line end and the system's reason are shown.
std::optional<platform::MappedFile> OpenFile(std::string_view path, ui::UserInterface& show);

/// The same; a file that is empty does not open either.
std::optional<platform::MappedFile> OpenTextSource(std::string_view path, ui::UserInterface& show);

}  // namespace vexlator::importer
