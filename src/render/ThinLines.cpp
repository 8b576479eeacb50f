// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/ThinLines.h"

#include <algorithm>
#include <cmath>

namespace vexlator::render {

namespace {

constexpr std::uint32_t evenBytes = 0x00FF00FF;
constexpr double fixedOne = 4294967296.0;
/// Pictures are far smaller.
constexpr double mostPixels = 1e6;

/// Blends `share` of 256 parts of the source over the target, two bytes at a time.
std::uint32_t Mixed(std::uint32_t source, std::uint32_t target, std::uint32_t share) {
    return (source * share + target * (256 - share)) >> 8 & evenBytes;
}

/// The first pixel whose centre is at or after a position, which is not below 0.
int PixelFrom(double place) {
    constexpr double half = 0.5;
    return static_cast<int>(place + half);
}

}  // namespace

/// The positions of a line across its longer axis, for the pixels along this axis. Numbers have 32 bits after
/// the point and are sums of whole numbers, so they do not depend on the start.
struct ThinLines::Strip {
    int origin;  ///< a pixel
    std::int64_t atOrigin, slope;
    std::int32_t width;  ///< of 256 parts of a pixel
    std::int64_t At(int pixel) const { return atOrigin + (pixel - origin) * slope; }
};

void ThinLines::TakeColour(Argb colour) {
    redBlue_ = colour & evenBytes;
    alphaGreen_ = (colour >> 8 & 0xFF) | 0x00FF0000;
    alpha_ = AlphaOf(colour) + (AlphaOf(colour) >> 7);
}

/// Covers `cover` of 256 parts of a pixel.
template <bool isSteep, bool isInside>
inline void ThinLines::Blend(int along, int across, int cover) {
    int x = isSteep ? across : along, y = isSteep ? along : across;
    if (!isInside && (x < 0 || x >= width_ || y < top_ || y >= bottom_)) return;
    std::uint32_t& pixel = pixels_[(y - top_) * stride_ + x];
    std::uint32_t share = static_cast<std::uint32_t>(cover) * alpha_ >> 8;
    pixel = Mixed(redBlue_, pixel & evenBytes, share) | Mixed(alphaGreen_, pixel >> 8 & evenBytes, share)
                                                            << 8;
}

void ThinLines::DrawCourse(std::span<const PlanePoint> course, Argb colour) {
    TakeColour(colour);
    bool wasSteep = false;
    for (std::size_t i = 1; i < course.size(); ++i) {
        PlanePoint from = course[i - 1], to = course[i];
        double dx = std::abs(to.x - from.x), dy = std::abs(to.y - from.y);
        bool isSteep = dy > dx;
        // A segment covers the pixels whose centres it passes, so that the next segment does not draw over
        // its end. Half a pixel more closes both ends, and the corner where the line changes its longer axis.
        double lead = i == 1 || isSteep != wasSteep ? 0.5 : 0, trail = i + 1 == course.size() ? 0.5 : 0;
        wasSteep = isSteep;
        if (isSteep)
            DrawSegment<true>({from.y, from.x}, {to.y, to.x}, lead, trail);
        else
            DrawSegment<false>(from, to, lead, trail);
    }
}

/// x is along the longer axis, y across it.
template <bool isSteep>
void ThinLines::DrawSegment(PlanePoint from, PlanePoint to, double lead, double trail) {
    const double least = isSteep ? top_ : 0, most = isSteep ? bottom_ : width_;
    const int low = isSteep ? 0 : top_, high = isSteep ? width_ : bottom_;
    if (from.x > to.x) {
        std::swap(from, to);
        std::swap(lead, trail);
    }
    double length = to.x - from.x;
    double slope = length > 0 ? (to.y - from.y) / length : 0;
    double begin = from.x - lead, end = to.x + trail;
    // Only the part near the rows: a line does not reach more than two pixels.
    if (slope != 0) {
        double atLow = from.x + (low - 2 - from.y) / slope, atHigh = from.x + (high + 2 - from.y) / slope;
        begin = std::max(begin, std::min(atLow, atHigh));
        end = std::min(end, std::max(atLow, atHigh));
    } else if (from.y < low - 2 || from.y > high + 2) {
        return;
    }
    begin = std::max(begin, least);
    end = std::min(end, most);
    if (!(begin < end)) return;
    const int first = PixelFrom(begin), last = PixelFrom(end);
    if (first == last) return;
    // One pixel wide across the line.
    const double width = std::sqrt(1 + slope * slope);
    const int origin = PixelFrom(std::max(from.x - lead, 0.0));
    const double atOrigin = from.y + (origin + 0.5 - from.x) * slope - width / 2;
    // From there it approaches the picture by less than the picture's size.
    if (!(std::abs(atOrigin) < mostPixels)) return;
    const Strip strip{origin, static_cast<std::int64_t>(atOrigin * fixedOne),
                      static_cast<std::int64_t>(slope * fixedOne), static_cast<std::int32_t>(width * 256)};
    const std::int64_t atFirst = strip.At(first) >> 32, atLast = strip.At(last - 1) >> 32;
    bool isInside = std::min(atFirst, atLast) >= low && std::max(atFirst, atLast) + 3 < high;
    if (isInside)
        DrawStrip<isSteep, true>(strip, first, last);
    else
        DrawStrip<isSteep, false>(strip, first, last);
}

template <bool isSteep, bool isInside>
void ThinLines::DrawStrip(const Strip& strip, int first, int last) {
    constexpr int whole = 256;
    std::int64_t at = strip.At(first);
    for (int along = first; along < last; ++along, at += strip.slope) {
        const int across = static_cast<int>(at >> 32);
        const int begun = whole - static_cast<int>(at >> 24 & 0xFF), rest = strip.width - begun;
        Blend<isSteep, isInside>(along, across, begun);
        Blend<isSteep, isInside>(along, across + 1, std::min(rest, whole));
        if (rest > whole) Blend<isSteep, isInside>(along, across + 2, rest - whole);
    }
}

void ThinLines::DrawDot(PlanePoint centre, int size, Argb colour) {
    TakeColour(colour);
    double reach = size / 2.0 + 1;
    if (!(centre.x > -reach && centre.x < width_ + reach && centre.y > top_ - reach &&
          centre.y < bottom_ + reach))
        return;
    int left = static_cast<int>(std::floor(centre.x - (size - 1) / 2.0));
    int upper = static_cast<int>(std::floor(centre.y - (size - 1) / 2.0));
    // Without its corners a square of a few pixels looks round.
    int round = size > 3 ? 1 : 0;
    for (int y = std::max(upper, top_); y < std::min(upper + size, bottom_); ++y) {
        int cut = y == upper || y == upper + size - 1 ? round : 0;
        for (int x = std::max(left + cut, 0); x < std::min(left + size - cut, width_); ++x)
            Blend<false, true>(x, y, 256);
    }
}

}  // namespace vexlator::render
