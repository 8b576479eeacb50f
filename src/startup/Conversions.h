// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"
#include "startup/CommandLine.h"

#include <span>
#include <string>
#include <string_view>

/// The list of formats: the conversion of each format code. There is no other list.
namespace vexlator::startup {

using ImportCall = config::Outcome (*)(config::Run&, const ImportCommand&);
using ExportCall = config::Outcome (*)(config::Run&, const ExportCommand&);

struct ImportRow {
    std::string_view code;
    std::string_view words;  ///< the source, for the user; rows with the same words are neighbours
    std::string_view form;   ///< name of the conversion form
    ImportCall call;
    bool addsToDrawing = false;     ///< to an existing one, so that a second import duplicates its features
    std::string_view program = "";  ///< of the suite, without which there is no conversion
    bool takesExtent = false;
};

struct ExportRow {
    std::string_view code;
    std::string_view words;  ///< the output, for the user
    std::string_view form;
    ExportCall call;
    bool intoFmoDirectory = false;  ///< the results go to FMODirectory, not to the folder beside the drawing
    std::string_view program = "";  ///< of the suite, without which there is no conversion
    bool handsOver = false;  ///< to a program of its own: the steps after an export follow a failure too
};

/// The rows for a run. Rows are tried in order.
struct Conversions {
    std::span<const ImportRow> imports;
    std::span<const ExportRow> exports;

    /// nullptr if no row has the code.
    const ImportRow* FindImport(std::string_view code) const;
    const ExportRow* FindExport(std::string_view code) const;
    /// Every code with its words, as in "SHP (shapefiles), MID MIF (MapInfo interchange files)".
    std::string ImportList() const;
    std::string ExportList() const;
    /// The same as lines of at most 80 characters, exports beside imports.
    std::string Table() const;
};

/// All formats.
Conversions AllConversions();

}  // namespace vexlator::startup
