// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace vexlator::raster {

/// Looks at what a JPEG of that size claims before its decoder takes memory for it.
/// Every block of 8 x 8 pixels takes at least one bit, unless the coding is arithmetic (ISO/IEC 10918-1): a
/// file with fewer bits is truncated. A progressive JPEG needs two bytes for each pixel and channel in
/// memory.
/// @throws platform::ReadError
void RequireSoundJpeg(const std::string& file, int width, int height, int channels);

}  // namespace vexlator::raster
