// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"
#include "startup/CommandLine.h"

#include <span>
#include <string>
#include <string_view>

/// The list of formats: which conversion a format code leads to. There is no other.
namespace vexlator::startup {

using ImportCall = config::Outcome (*)(config::Run&, const ImportCommand&);
using ExportCall = config::Outcome (*)(config::Run&, const ExportCommand&);

struct ImportRow {
    std::string_view code;
    std::string_view words;  ///< what is read, for people; rows with the same words follow each other
    std::string_view form;   ///< name of the conversion form
    ImportCall call;
    bool addsToDrawing = false;  ///< to one that is there, so that a second import doubles what it brings
};

struct ExportRow {
    std::string_view code;
    std::string_view words;  ///< what is written
    std::string_view form;
    ExportCall call;
    bool intoFmoDirectory = false;  ///< the results go to FMODirectory, not to the folder beside the drawing
};

/// The rows that a run chooses from. Rows are tried in order.
struct Conversions {
    std::span<const ImportRow> imports;
    std::span<const ExportRow> exports;

    /// nullptr when the code is in no row.
    const ImportRow* FindImport(std::string_view code) const;
    const ExportRow* FindExport(std::string_view code) const;
    /// Every code with its words, as in "SHP (shapefiles), MID MIF (MapInfo interchange files)".
    std::string ImportList() const;
    std::string ExportList() const;
    /// The same as lines of at most 80 characters, exports beside imports.
    std::string Table() const;
};

/// Every format that there is.
Conversions AllConversions();

}  // namespace vexlator::startup
