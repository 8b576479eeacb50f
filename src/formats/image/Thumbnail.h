// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Small pictures of photographs, which may be damaged or enormous.
namespace vexlator::formats {

/// A picture's size in pixels.
struct ImageSize {
    int width = 0, height = 0;
};

/// Larger photographs are refused: some kinds are unpacked whole, at up to eight bytes a pixel.
constexpr long long mostPhotoPixels = 64'000'000;

/// A JPEG or BMP file, told apart by its first bytes, as the bytes of a BMP file (24 bits a pixel) that fits
/// into `most`. Proportions stay; nothing is enlarged.
/// @throws platform::ReadError: neither kind of file, damaged in any way, or too large
std::string ThumbnailBmp(std::string_view path, ImageSize most);

}  // namespace vexlator::formats
