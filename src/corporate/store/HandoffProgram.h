// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::corporate {

/// How the program tells of the end of an export. Every command leaves a log, too: a ConversionReport beside
/// the drawing.
enum class SignOfExport {
    Log,
    DrawingGone  ///< removes the drawing
};

/// A hand-off program. Returns its exit status: 0 done; 1 failed, and the store or drawing is unchanged; 2
/// wrong use.
int RunHandoffProgram(std::string_view name, SignOfExport sign, const std::vector<std::string>& arguments);

}  // namespace vexlator::corporate
