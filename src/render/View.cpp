// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/View.h"

#include <algorithm>

namespace vexlator::render {

View::View(const Box& extent, int width, int height) : width_(width), height_(height) {
    // Halves first: the sum of two large numbers may be infinite.
    centre_ = {extent.minX / 2 + extent.maxX / 2, extent.minY / 2 + extent.maxY / 2};
    if (!std::isfinite(centre_.x) || !std::isfinite(centre_.y)) centre_ = {};
    double across = extent.maxX - extent.minX, up = extent.maxY - extent.minY;
    double scale = std::min(width / std::max(across, 0.0), height / std::max(up, 0.0));
    // Far from the origin, coordinates have no digits for more pixels.
    double finest = 1e-12 * std::max({1.0, std::abs(centre_.x), std::abs(centre_.y)});
    if (!std::isfinite(scale) || scale <= 0) scale = std::min(width, height) / std::max(1.0, finest);
    scale = std::min(scale, 1 / finest);
    toPixels_ = {
        {scale, 0}, {0, -scale}, {width / 2.0 - scale * centre_.x, height / 2.0 + scale * centre_.y}};
}

PlanePoint View::ToGround(PlanePoint pixel) const {
    return {centre_.x + (pixel.x - width_ / 2.0) / Scale(), centre_.y - (pixel.y - height_ / 2.0) / Scale()};
}

Box View::Ground() const {
    PlanePoint least = ToGround({0, double(height_)}), most = ToGround({double(width_), 0});
    return {least.x, least.y, most.x, most.y};
}

}  // namespace vexlator::render
