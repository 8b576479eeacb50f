// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "util/Placement.h"

namespace vexlator::render {

using util::Placement;
using util::PlanePoint;

using drawing::Box;

/// The visible part of the ground, and its number of pixels. Ground is never distorted: the extent is centred
/// at the largest scale that fits, with more ground around it if the shapes differ.
class View {
public:
    /// An extent without width and height, or with sides that are not finite, becomes one unit around its
    /// centre. `width` and `height` are at least 1.
    View(const Box& extent, int width, int height);
    /// The view centred on that position. The scale is in pixels per ground unit.
    View(PlanePoint centre, double scale, int width, int height);

    /// The view moved by this number of pixels.
    View Panned(double right, double down) const;
    /// The view enlarged by a factor around a pixel, whose ground stays in place. Scales are limited by the
    /// precision of numbers.
    View Zoomed(PlanePoint pixel, double factor) const;
    /// The same centre and scale with other pixels.
    View Resized(int width, int height) const { return {centre_, Scale(), width, height}; }

    PlanePoint Centre() const { return centre_; }
    int Width() const { return width_; }
    int Height() const { return height_; }
    /// Pixels per ground unit.
    double Scale() const { return toPixels_.xAxis.x; }
    /// Converts ground to pixels. The first row is the northernmost. Pixel (0, 0) covers 0 to 1.
    const Placement& ToPixels() const { return toPixels_; }
    PlanePoint ToGround(PlanePoint pixel) const;
    /// The ground in the whole picture.
    Box Ground() const;

private:
    int width_, height_;
    PlanePoint centre_;
    Placement toPixels_;
};

}  // namespace vexlator::render
