// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Thumbnails of photographs, which may be damaged or enormous.
namespace vexlator::formats {

/// A picture's size in pixels.
struct ImageSize {
    int width = 0, height = 0;
};

/// Larger photographs are refused, because some kinds are unpacked whole, at up to eight bytes per pixel.
constexpr long long mostPhotoPixels = 64'000'000;

/// Reads a JPEG or BMP file, recognised by its first bytes. Returns the bytes of a BMP file (24 bits per
/// pixel) that fits into `most`. Proportions stay; nothing is enlarged.
/// @throws platform::ReadError: another kind of file, damaged, or too large
std::string ThumbnailBmp(std::string_view path, ImageSize most);

}  // namespace vexlator::formats
