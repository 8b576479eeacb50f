// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/ImageTile.h"

#include "util/Geometry.h"

namespace vexlator::background {

namespace {

constexpr int marker = 0xFF, startOfImage = 0xD8, endOfImage = 0xD9;

/// Frames of all kinds; three numbers in their range mean something else.
bool BeginsFrame(int code) {
    return code >= 0xC0 && code <= 0xCF && code != 0xC4 && code != 0xC8 && code != 0xCC;
}

}  // namespace

Box ImageTile::GroundBox() const {
    Box box = Box::Empty();
    double right = width, bottom = height;
    for (util::PlanePoint corner : {util::PlanePoint{0, 0}, {right, 0}, {0, bottom}, {right, bottom}}) {
        util::PlanePoint ground = world.Ground(corner);
        box.Widen(ground.x, ground.y);
    }
    return box;
}

std::optional<JpegSize> SizeOfJpeg(std::span<const std::byte> file) {
    auto byte = [&](std::size_t at) { return std::to_integer<int>(file[at]); };
    auto number = [&](std::size_t at) { return byte(at) << 8 | byte(at + 1); };
    auto isMarker = [&](std::size_t at, int code) { return byte(at) == marker && byte(at + 1) == code; };
    std::size_t size = file.size();
    if (size < 4 || !isMarker(0, startOfImage) || !isMarker(size - 2, endOfImage)) return std::nullopt;
    constexpr std::size_t frameBytes = 9;  // marker, length, depth, height, width
    for (std::size_t at = 2; at + frameBytes <= size && byte(at) == marker;) {
        int code = byte(at + 1);
        if (BeginsFrame(code)) return JpegSize{number(at + 7), number(at + 5)};
        at += code == marker ? 1 : std::size_t{2} + static_cast<std::size_t>(number(at + 2));
    }
    return std::nullopt;
}

}  // namespace vexlator::background
