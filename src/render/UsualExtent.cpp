// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/UsualExtent.h"

#include <algorithm>
#include <vector>

namespace vexlator::render {

namespace {

/// Largest distance of items from the middle half of all items, in widths of that half.
constexpr double farQuartiles = 5;
constexpr double leastGain = 3;
constexpr std::size_t mostShare = 50;

struct Range {
    double least, most;
};

/// The range of most values, by quartiles.
Range UsualRange(std::vector<double>& values) {
    auto at = [&](std::size_t rank) {
        std::nth_element(values.begin(), values.begin() + std::ptrdiff_t(rank), values.end());
        return values[rank];
    };
    double low = at((values.size() - 1) / 4), high = at((values.size() - 1) * 3 / 4);
    double reach = farQuartiles * (high - low);
    return {low - reach, high + reach};
}

double SizeOf(const Box& box) {
    return std::max(box.maxX - box.minX, box.maxY - box.minY);
}

}  // namespace

UsualExtent FindUsualExtent(const Scene& scene) {
    constexpr std::size_t leastItems = 4;
    UsualExtent whole{scene.Extents(), 0};
    if (scene.ItemCount() < leastItems) return whole;
    std::vector<double> across, up;
    for (std::size_t i = 0; i < scene.ItemCount(); ++i) {
        Box box = scene.BoxOf(i);
        across.push_back(box.minX / 2 + box.maxX / 2);
        up.push_back(box.minY / 2 + box.maxY / 2);
    }
    Range x = UsualRange(across), y = UsualRange(up);
    UsualExtent usual;
    bool isFirst = true;
    for (std::size_t i = 0; i < scene.ItemCount(); ++i) {
        Box box = scene.BoxOf(i);
        if (box.minX < x.least || box.maxX > x.most || box.minY < y.least || box.maxY > y.most) {
            ++usual.outside;
            continue;
        }
        if (isFirst) usual.extent = box;
        isFirst = false;
        usual.extent.widen(box);
    }
    bool areFew = usual.outside <= std::max<std::size_t>(1, scene.ItemCount() / mostShare);
    bool isGain = SizeOf(usual.extent) * leastGain < SizeOf(whole.extent);
    return areFew && isGain && !isFirst ? usual : whole;
}

}  // namespace vexlator::render
