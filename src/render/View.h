// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "util/Placement.h"

namespace vexlator::render {

using util::Placement;
using util::PlanePoint;

using drawing::Box;

/// Which part of the ground is seen, and on how many pixels. Ground is never distorted: the extent lies in
/// the middle, as large as it fits, with ground around it where the shapes differ.
class View {
public:
    /// An extent without width and height, or with sides that are not finite, shows one unit around its
    /// middle. `width` and `height` are at least 1.
    View(const Box& extent, int width, int height);
    /// With that place in the middle. The scale is in pixels to a ground unit.
    View(PlanePoint centre, double scale, int width, int height);

    /// What was seen, moved by so many pixels.
    View Panned(double right, double down) const;
    /// Larger by a factor around a pixel, whose ground stays where it is. Scales end where numbers do.
    View Zoomed(PlanePoint pixel, double factor) const;
    /// The same middle and scale on other pixels.
    View Resized(int width, int height) const { return {centre_, Scale(), width, height}; }

    PlanePoint Centre() const { return centre_; }
    int Width() const { return width_; }
    int Height() const { return height_; }
    /// Pixels to a ground unit.
    double Scale() const { return toPixels_.xAxis.x; }
    /// From the ground to pixels, whose first row is the northernmost; pixel (0, 0) reaches from 0 to 1.
    const Placement& ToPixels() const { return toPixels_; }
    PlanePoint ToGround(PlanePoint pixel) const;
    /// The ground that the whole picture shows.
    Box Ground() const;

private:
    int width_, height_;
    PlanePoint centre_;
    Placement toPixels_;
};

}  // namespace vexlator::render
