// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// The projection library reads grids with the TIFF library, which prints errors of a file.
namespace vexlator::coords {

/// From now on its messages are kept for each thread, and not printed.
void CatchTiffMessages();

/// The first error of this thread since the last call; "" if there was none.
std::string TakeTiffMessage();
bool HasTiffMessage();

/// Whether a file ends before its last tile or strip, or has no readable directory.
bool IsTiffCut(const std::string& nativePath);

}  // namespace vexlator::coords
