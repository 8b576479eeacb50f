// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "MakeWorldFile/NorthUp.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <vector>

namespace vexlator::makeworldfile {

namespace {

using util::PlanePoint;

struct Extent {
    double left = HUGE_VAL, right = -HUGE_VAL, bottom = HUGE_VAL, top = -HUGE_VAL;
    void Add(PlanePoint p) {
        left = std::min(left, p.x);
        right = std::max(right, p.x);
        bottom = std::min(bottom, p.y);
        top = std::max(top, p.y);
    }
};

/// Edges are curves under a fit of second order, so corners alone do not give their extent.
Extent ExtentOf(const georef::Fit& fit, double width, double height) {
    constexpr int steps = 32;
    Extent extent;
    for (int i = 0; i <= steps; ++i) {
        double x = width * i / steps, y = height * i / steps;
        for (PlanePoint pixel : {PlanePoint{x, 0}, {x, height}, {0, y}, {width, y}})
            extent.Add(fit.Ground(pixel));
    }
    return extent;
}

std::runtime_error TooLarge() {
    return std::runtime_error(
        "the image would be too large after rotation to north-up; check the control points");
}

/// Limit for a pixel's share: a smaller one is rounding noise.
constexpr double noise = 1e-6;

/// A part of the rotated image.
struct Block {
    int left = 0, top = 0, width = 0, height = 0;
};

/// A part of the image, pixel by pixel.
struct Window {
    int left = 0, top = 0, width = 0, height = 0;
    std::vector<GByte> pixels;
};

/// Computes the rotated image block by block, so that memory holds only the part of the image for one block.
class Turner {
public:
    Turner(GDALDatasetH image, const georef::Fit& fit, const formats::WorldFile& world)
        : image_(image),
          fit_(fit),
          world_(world),
          width_(GDALGetRasterXSize(image)),
          height_(GDALGetRasterYSize(image)),
          channels_(GDALGetRasterCount(image)) {}

    /// The block's pixels, valid until the next call.
    std::vector<GByte>& Turn(const Block& block) {
        FindNodes(block);
        ReadWindow();
        turned_.assign(static_cast<std::size_t>(block.width) * block.height * channels_, white);
        for (int row = 0; row < block.height; ++row)
            channels_ == 1 ? Sample<1>(block, row) : Sample<3>(block, row);
        return turned_;
    }

private:
    /// Number of pixels of a row that are taken to be evenly on a straight line of the image. A fit of second
    /// order hardly bends over this length.
    static constexpr int nodeStep = 32;
    static constexpr GByte white = 255;

    void FindNodes(const Block& block);
    void ReadWindow();
    template <int channels>
    void Sample(const Block& block, int row);
    template <int channels>
    void SamplePixel(PlanePoint place, GByte* target) const;

    GDALDatasetH image_;
    const georef::Fit& fit_;
    formats::WorldFile world_;
    int width_, height_, channels_;
    std::size_t nodesPerRow_ = 0;
    std::vector<PlanePoint>
        nodes_;      ///< positions of regularly spaced pixels of each row on the image; NaN: none
    Window window_;  ///< the part of the image in the block
    std::vector<GByte> turned_;
};

void Turner::FindNodes(const Block& block) {
    constexpr PlanePoint nowhere{NAN, NAN};
    auto width = static_cast<std::size_t>(block.width);
    nodesPerRow_ = (width + nodeStep - 1) / nodeStep + 1;
    nodes_.clear();
    PlanePoint middle{width_ / 2.0, height_ / 2.0};
    for (int row = 0; row < block.height; ++row)
        for (std::size_t node = 0; node < nodesPerRow_; ++node) {
            double column = block.left + static_cast<double>(node) * nodeStep + 0.5;
            nodes_.push_back(
                fit_.Pixel(world_.Ground({column, block.top + row + 0.5}), middle).value_or(nowhere));
        }
}

/// The area between all nodes, with the neighbours needed at the edges.
void Turner::ReadWindow() {
    constexpr double mostPixels = 1e8;
    Extent extent;
    for (PlanePoint node : nodes_)
        if (!std::isnan(node.x)) extent.Add(node);
    auto inside = [](double value, int size) {
        return static_cast<int>(std::clamp(value, 0.0, double(size)));
    };
    window_.left = inside(std::floor(extent.left) - 1, width_);
    window_.top = inside(std::floor(extent.bottom) - 1, height_);
    window_.width = std::max(inside(std::ceil(extent.right) + 1, width_) - window_.left, 0);
    window_.height = std::max(inside(std::ceil(extent.top) + 1, height_) - window_.top, 0);
    if (static_cast<double>(window_.width) * window_.height > mostPixels) throw TooLarge();
    window_.pixels.resize(static_cast<std::size_t>(window_.width) * window_.height * channels_);
    if (window_.pixels.empty()) return;
    CPLErr error =
        GDALDatasetRasterIOEx(image_, GF_Read, window_.left, window_.top, window_.width, window_.height,
                              window_.pixels.data(), window_.width, window_.height, GDT_Byte, channels_,
                              nullptr, channels_, GSpacing{channels_} * window_.width, 1, nullptr);
    if (error != CE_None) throw std::runtime_error(raster::TakeReason());
}

template <int channels>
void Turner::Sample(const Block& block, int row) {
    const PlanePoint* node = &nodes_[static_cast<std::size_t>(row) * nodesPerRow_];
    GByte* target = &turned_[static_cast<std::size_t>(row) * block.width * channels];
    for (int first = 0; first < block.width; first += nodeStep, ++node) {
        PlanePoint step{(node[1].x - node[0].x) / nodeStep, (node[1].y - node[0].y) / nodeStep};
        int count = std::min(nodeStep, block.width - first);
        for (int i = 0; i < count; ++i, target += channels)
            SamplePixel<channels>({node[0].x + step.x * i, node[0].y + step.y * i}, target);
    }
}

/// Bilinear between the centres of four pixels. At the image's edge, only pixels inside count.
template <int channels>
void Turner::SamplePixel(PlanePoint place, GByte* target) const {
    constexpr int one = 1 << 11, half = one / 2;
    if (!(place.x >= 0 && place.y >= 0 && place.x < width_ && place.y < height_)) return;
    auto x = static_cast<int>((place.x + 0.5) * one) - one, y = static_cast<int>((place.y + 0.5) * one) - one;
    int column = x >> 11, row = y >> 11, right = x & (one - 1), lower = y & (one - 1);
    int column0 = std::max(column, 0) - window_.left,
        column1 = std::min(column + 1, width_ - 1) - window_.left;
    int row0 = std::max(row, 0) - window_.top, row1 = std::min(row + 1, height_ - 1) - window_.top;
    const GByte* upper0 = &window_.pixels[static_cast<std::size_t>(row0) * window_.width * channels];
    const GByte* lower0 = &window_.pixels[static_cast<std::size_t>(row1) * window_.width * channels];
    for (int k = 0; k < channels; ++k) {
        int above = upper0[column0 * channels + k] * (one - right) + upper0[column1 * channels + k] * right;
        int below = lower0[column0 * channels + k] * (one - right) + lower0[column1 * channels + k] * right;
        // Both sums have eleven bits after the point. Another weighting would give twenty-two.
        target[k] = static_cast<GByte>(
            (above * std::int64_t{one - lower} + below * std::int64_t{lower} + std::int64_t{half} * one) >>
            22);
    }
}

}  // namespace

NorthUpFrame FrameNorthUp(const georef::Fit& fit, int width, int height) {
    constexpr double mostPixels = 4e9, longestSide = 200'000;
    Extent extent = ExtentOf(fit, width, height);
    double size = fit.TermsAt({width / 2.0, height / 2.0}).PixelSize();
    double columns = std::max(std::ceil((extent.right - extent.left) / size - noise), 1.0);
    double rows = std::max(std::ceil((extent.top - extent.bottom) / size - noise), 1.0);
    if (!(columns <= longestSide && rows <= longestSide && columns * rows <= mostPixels)) throw TooLarge();
    formats::WorldFile world{size, 0, 0, -size, extent.left + size / 2, extent.top - size / 2};
    return {static_cast<int>(columns), static_cast<int>(rows), world};
}

raster::ScratchImage TurnNorthUp(GDALDatasetH image, const georef::Fit& fit, const NorthUpFrame& frame,
                                 const std::string& scratch) {
    constexpr int blockWidth = 1024, blockHeight = 256;
    int channels = GDALGetRasterCount(image);
    raster::ScratchImage turned(scratch, frame.width, frame.height, channels);
    Turner turner(image, fit, frame.world);
    for (int top = 0; top < frame.height; top += blockHeight)
        for (int left = 0; left < frame.width; left += blockWidth) {
            Block block{left, top, std::min(blockWidth, frame.width - left),
                        std::min(blockHeight, frame.height - top)};
            CPLErr error = GDALDatasetRasterIOEx(turned.Handle(), GF_Write, left, top, block.width,
                                                 block.height, turner.Turn(block).data(), block.width,
                                                 block.height, GDT_Byte, channels, nullptr, channels,
                                                 GSpacing{channels} * block.width, 1, nullptr);
            turned.RequireWritten(error == CE_None);
        }
    turned.Finish();
    return turned;
}

}  // namespace vexlator::makeworldfile
