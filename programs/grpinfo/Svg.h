// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/PackageReader.h"

#include <string_view>

namespace vexlator::grpinfo {

/// Draws a proved package on white, a thousand pixels along the longer side. Areas are lowest, then lines and
/// points, then texts, in the colours of their class or style.
/// @throws platform::WriteError
void WriteSvg(const background::PackageReader& package, std::string_view path);

}  // namespace vexlator::grpinfo
