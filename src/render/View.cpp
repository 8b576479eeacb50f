// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/View.h"

#include <algorithm>
#include <cmath>

namespace vexlator::render {

namespace {

double ScaleFor(const Box& extent, int width, int height) {
    double across = extent.maxX - extent.minX, up = extent.maxY - extent.minY;
    return std::min(width / std::max(across, 0.0), height / std::max(up, 0.0));
}

/// Halves first: the sum of two large numbers can be infinite.
PlanePoint MiddleOf(const Box& box) {
    return {box.minX / 2 + box.maxX / 2, box.minY / 2 + box.maxY / 2};
}

}  // namespace

View::View(const Box& extent, int width, int height)
    : View(MiddleOf(extent), ScaleFor(extent, width, height), width, height) {}

View::View(PlanePoint centre, double scale, int width, int height)
    : width_(width), height_(height), centre_(centre) {
    if (!std::isfinite(centre_.x) || !std::isfinite(centre_.y)) centre_ = {};
    // Far from the origin, coordinates do not have digits for more pixels.
    double finest = 1e-12 * std::max({1.0, std::abs(centre_.x), std::abs(centre_.y)});
    if (!std::isfinite(scale) || scale <= 0) scale = std::min(width, height) / std::max(1.0, finest);
    scale = std::min(scale, 1 / finest);
    toPixels_ = {
        {scale, 0}, {0, -scale}, {width / 2.0 - scale * centre_.x, height / 2.0 + scale * centre_.y}};
}

View View::Panned(double right, double down) const {
    return {PlanePoint{centre_.x - right / Scale(), centre_.y + down / Scale()}, Scale(), width_, height_};
}

View View::Zoomed(PlanePoint pixel, double factor) const {
    constexpr double least = 1e-300;
    double scale = std::max(Scale() * factor, least);
    PlanePoint ground = ToGround(pixel);
    PlanePoint centre{ground.x - (pixel.x - width_ / 2.0) / scale,
                      ground.y + (pixel.y - height_ / 2.0) / scale};
    if (!std::isfinite(centre.x) || !std::isfinite(centre.y)) return *this;
    return {centre, scale, width_, height_};
}

PlanePoint View::ToGround(PlanePoint pixel) const {
    return {centre_.x + (pixel.x - width_ / 2.0) / Scale(), centre_.y - (pixel.y - height_ / 2.0) / Scale()};
}

Box View::Ground() const {
    PlanePoint least = ToGround({0, double(height_)}), most = ToGround({double(width_), 0});
    return {least.x, least.y, most.x, most.y};
}

}  // namespace vexlator::render
