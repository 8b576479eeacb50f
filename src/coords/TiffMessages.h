// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// The TIFF library, by which the projection library reads grids, prints what is wrong with a file.
namespace vexlator::coords {

/// From now on its messages are kept, thread by thread, and printed nowhere.
void CatchTiffMessages();

/// The first error since the last call, of this thread; "" when there was none.
std::string TakeTiffMessage();
bool HasTiffMessage();

/// Whether a file ends before its last tile or strip, or has no readable directory.
bool IsTiffCut(const std::string& nativePath);

}  // namespace vexlator::coords
