// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/Palette.h"
#include "util/Placement.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace vexlator::render {

using util::Placement;
using util::PlanePoint;

/// Draws lines of one pixel width, and dots, into rows of an image of 32-bit pixels (premultiplied,
/// 0xAARRGGBB). Most lines of a map are thin, and a painter for lines of any width takes ten times as long.
///
/// A row is the same whichever rows are drawn with it, so threads can share a picture.
class ThinLines {
public:
    /// Draws into `height` rows from `top` on. They start at `pixels`, `stride` pixels apart.
    ThinLines(std::uint32_t* pixels, std::ptrdiff_t stride, int width, int top, int height)
        : pixels_(pixels), stride_(stride), width_(width), top_(top), bottom_(top + height) {}

    /// A line through the points, smoothed. Points are finite.
    void DrawCourse(std::span<const PlanePoint> course, Argb colour);
    /// A dot of `size` pixels around a point; not smoothed.
    void DrawDot(PlanePoint centre, int size, Argb colour);

private:
    struct Strip;
    void TakeColour(Argb colour);
    template <bool isSteep>
    void DrawSegment(PlanePoint from, PlanePoint to, double lead, double trail);
    /// `isInside`: every pixel is in the rows.
    template <bool isSteep, bool isInside>
    void DrawStrip(const Strip& strip, int first, int last);
    template <bool isSteep, bool isInside>
    void Blend(int along, int across, int cover);

    std::uint32_t* pixels_;
    std::ptrdiff_t stride_;
    int width_, top_, bottom_;
    std::uint32_t redBlue_ = 0, alphaGreen_ = 0;  ///< current colour, opaque
    std::uint32_t alpha_ = 0;                     ///< 0 to 256
};

}  // namespace vexlator::render
