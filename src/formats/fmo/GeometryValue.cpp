// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/fmo/GeometryValue.h"

#include "formats/Bytes.h"
#include "platform/Errors.h"
#include "util/Numbers.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace vexlator::formats {

using platform::ReadError;
using util::PlanePoint;

namespace {

constexpr std::size_t numberSize = sizeof(float);
constexpr double closedWithin = 0.001;
constexpr std::size_t pairSize = 2 * numberSize;

void PutPair(char* target, double x, double y) {
    PutLittle(target, static_cast<float>(x));
    PutLittle(target + numberSize, static_cast<float>(y));
}

/// N, limited to the size of the value.
std::size_t CheckedCount(float announced, std::size_t pairs) {
    if (!std::isfinite(announced))
        throw ReadError("", ReadError::AtByte(0), "the vertex count is not a number");
    float count = std::round(announced);
    if (count < 1) return 1;
    if (count > static_cast<float>(pairs))
        throw ReadError("", ReadError::AtByte(0),
                        util::FormatShortest(static_cast<double>(count) - 1) +
                            " vertices announced, room for " + std::to_string(pairs > 0 ? pairs - 1 : 0));
    // From 2^24 on a single-precision number can be slightly above the count that it was made from.
    return std::min(static_cast<std::size_t>(count), pairs);
}

}  // namespace

bool AreClosed(const PlanePoint& first, const PlanePoint& last) {
    return util::Distance(first.x, first.y, last.x, last.y) < closedWithin;
}

std::string vArraytoBLOB(std::span<const PlanePoint> points, bool& close) {
    std::string value;
    vArraytoBLOB(points, close, value);
    return value;
}

void vArraytoBLOB(std::span<const PlanePoint> points, bool& close, std::string& value) {
    if (points.empty() || AreClosed(points.front(), points.back())) close = false;
    std::size_t pairs = points.size() + 1 + (close ? 1 : 0);
    value.assign(pairs * pairSize + 1, '\0');
    char* out = value.data();
    PutPair(out, static_cast<double>(pairs), 0);
    for (const PlanePoint& point : points) PutPair(out += pairSize, point.x, point.y);
    if (close) PutPair(out + pairSize, points.front().x, points.front().y);
}

std::vector<float> BLOBtoNodeMemory(std::string_view value) {
    if (value.empty()) return {};
    std::size_t used = value.size() - 1;
    std::vector<float> nodes((used + numberSize / 2) / numberSize + 1);
    std::memcpy(nodes.data(), value.data(), used);
    return nodes;
}

std::vector<PlanePoint> BlobToVertexList(std::string_view value) {
    std::vector<float> nodes = BLOBtoNodeMemory(value);
    if (nodes.empty()) return {};
    std::size_t count = CheckedCount(nodes[0], (value.size() - 1) / pairSize);
    std::vector<PlanePoint> vertices(count - 1);
    for (std::size_t k = 1; k < count; ++k) {
        vertices[k - 1] = {nodes[2 * k], nodes[2 * k + 1]};
        if (!std::isfinite(nodes[2 * k]) || !std::isfinite(nodes[2 * k + 1]))
            throw ReadError("", ReadError::AtByte(k * pairSize), "a coordinate is not a number");
    }
    return vertices;
}

}  // namespace vexlator::formats
