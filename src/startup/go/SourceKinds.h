// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vexlator::startup {

/// What Go does with a source.
enum class Treatment {
    Nothing,
    ByDrawing,     ///< a drawing is made of it, then a package
    ByGisProgram,  ///< the backdrop builder reads it
    Images,        ///< the background-building component takes it
    Topography,    ///< the same, with change-only updates
    MapSheet       ///< PDF with a companion XML
};

struct SourceKind {
    std::string_view code;  ///< extension, in capitals
    Treatment treatment = Treatment::Nothing;
    std::string_view words = "";
};

/// The kind of a path; Treatment::Nothing when Go does nothing with it.
const SourceKind& KindOf(std::string_view path);

}  // namespace vexlator::startup
