// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/ConvertArray.h"

#include "util/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <span>
#include <vector>

namespace vexlator::coords {

namespace {

/// Large enough that every tile is unpacked once for thousands of points, small enough for a few megabytes of
/// memory.
constexpr std::size_t blockSize = std::size_t{1} << 18;

/// Below this number of points, sorting costs more than it saves.
constexpr std::size_t fewPoints = 64;

constexpr std::size_t binsPerSide = 32;

/// Divides the range of one coordinate into bins.
class Axis {
public:
    void Extend(double value) {
        if (!std::isfinite(value)) return;
        least_ = std::min(least_, value);
        most_ = std::max(most_, value);
    }
    std::size_t Bin(double value) const {
        double bin = (value - least_) / (most_ - least_) * binsPerSide;
        if (!(bin > 0)) return 0;  // also NaN
        return bin < binsPerSide - 1 ? static_cast<std::size_t>(bin) : binsPerSide - 1;
    }

private:
    double least_ = std::numeric_limits<double>::max();
    double most_ = std::numeric_limits<double>::lowest();
};

/// The positions of the points in an order that keeps neighbours together. The projection library reads grids
/// in tiles and keeps only a few tiles unpacked. Points in the order of a table can cost one tile each. In
/// this order one tile serves thousands of points.
std::vector<std::uint32_t> SpatialOrder(std::span<const util::PlanePoint> points) {
    std::vector<std::uint32_t> order(points.size());
    std::iota(order.begin(), order.end(), 0);
    if (points.size() < fewPoints) return order;
    Axis x, y;
    for (const util::PlanePoint& point : points) {
        x.Extend(point.x);
        y.Extend(point.y);
    }
    auto binOf = [&](const util::PlanePoint& point) { return y.Bin(point.y) * binsPerSide + x.Bin(point.x); };
    std::array<std::uint32_t, binsPerSide * binsPerSide + 1> next{};
    for (const util::PlanePoint& point : points) ++next[binOf(point) + 1];
    std::partial_sum(next.begin(), next.end(), next.begin());
    for (std::uint32_t i = 0; i < points.size(); ++i) order[next[binOf(points[i])]++] = i;
    return order;
}

double Rounded(double value, std::optional<int> decimals) {
    return decimals ? util::RoundFixed(value, *decimals) : value;
}

/// The copy for the conversion of a block, so that failed points keep their values.
class Block {
public:
    Block(Direction direction, Decimals decimals) : direction_(direction), decimals_(decimals) {}

    std::size_t Convert(Backend& backend, Coordinates part) {
        order_ = SpatialOrder(part.points);
        Gather(part);
        backend.Convert(direction_, {points_, heights_});
        return Scatter(part);
    }

private:
    void Gather(const Coordinates& part) {
        points_.resize(part.points.size());
        heights_.resize(part.heights.size());
        for (std::size_t i = 0; i < points_.size(); ++i) points_[i] = part.points[order_[i]];
        for (std::size_t i = 0; i < heights_.size(); ++i) heights_[i] = part.heights[order_[i]];
    }

    std::size_t Scatter(const Coordinates& part) const {
        std::size_t failed = 0;
        for (std::size_t i = 0; i < points_.size(); ++i) {
            if (!IsGood(i)) {
                ++failed;
                continue;
            }
            part.points[order_[i]] = {Rounded(points_[i].x, decimals_.plane),
                                      Rounded(points_[i].y, decimals_.plane)};
            if (!heights_.empty()) part.heights[order_[i]] = Rounded(heights_[i], decimals_.height);
        }
        return failed;
    }

    bool IsGood(std::size_t i) const {
        return std::isfinite(points_[i].x) && std::isfinite(points_[i].y) &&
               (heights_.empty() || std::isfinite(heights_[i]));
    }

    Direction direction_;
    Decimals decimals_;
    std::vector<std::uint32_t> order_;
    std::vector<util::PlanePoint> points_;
    std::vector<double> heights_;
};

}  // namespace

std::size_t ConvertArray(Backend& backend, Direction direction, Coordinates coordinates, Decimals decimals) {
    Block block(direction, decimals);
    std::size_t failed = 0;
    for (std::size_t begin = 0; begin < coordinates.points.size(); begin += blockSize) {
        std::size_t size = std::min(blockSize, coordinates.points.size() - begin);
        failed += block.Convert(backend, coordinates.Part(begin, size));
    }
    return failed;
}

}  // namespace vexlator::coords
