// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/FeatureHeader.h"
#include "background/package/LineSteps.h"
#include "background/package/TextAnchor.h"
#include "background_build/PlainPackage.h"
#include "platform/CodePages.h"
#include "util/Numbers.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace vexlator::test {

/// Elements on their way to tiles, one at a time.
class PlainWriter {
public:
    using Box = background::Box;
    using PlanePoint = util::PlanePoint;
    using Points = std::vector<PlanePoint>;

    PlainPackage package;
    background::FeatureHeader header;
    double tileSize = 250;

    static Box BoxOf(const Points& points) {
        Box box = Box::Empty();
        for (PlanePoint point : points) box.Widen(point.x, point.y);
        return box;
    }

    bool WriteLine(const Points& points, bool isHole = false) {
        if (points.empty()) return false;
        Box box = BoxOf(points);
        if (box.minX < 0 || box.minY < 0) return false;
        std::vector<background::Step> steps;
        if (!EncodeSteps(points, steps)) return false;
        PlanePoint mean{};
        for (PlanePoint point : points) mean = {mean.x + point.x, mean.y + point.y};
        if (!isHole || lastTile_.empty()) {
            double count = static_cast<double>(points.size()), tile = tileSize;
            if (box.Size() > 2 * tileSize)
                tile *= 100;
            else if (box.Size() > tileSize / 2)
                tile *= 10;
            lastTile_ = TileOf({mean.x / count, mean.y / count}, tile);
            lastTileSize_ = tile;
        }
        AddTo(lastTile_ + "L.PMM", lastTileSize_, LineText(Header(2), points[0], steps));
        return true;
    }

    void WriteArea(const Points& points, const std::string& part) {
        bool isPart = part.find_first_not_of(' ') != part.npos;
        int type = isPart ? 10 + static_cast<int>(util::IntegerOf(part)) : 4;
        Box box = BoxOf(points);
        AddTo(lastTile_ + "A.PMM", tileSize / 2 < box.Size() ? tileSize * 10 : tileSize,
              AreaText(Header(type), box, 1, std::stoi(lastTile_)));
    }

    void WriteText(PlanePoint at, double height, double angle, int position, const std::string& text) {
        std::string characters = platform::Windows1252FromUtf8(text);
        int tenths = static_cast<int>(height * 10 * (1 + 1e-12));
        int rotation = static_cast<int>(std::nearbyint(angle * 57.2957795130823 * 10));
        PlanePoint anchor = *background::TextAnchor(at, position, tenths, rotation, characters.size());
        if (anchor.x < 0 || anchor.y < 0) return;
        length_ = static_cast<std::int16_t>(20 + characters.size());
        AddTo(TileOf(anchor, tileSize) + "T.PMM", tileSize,
              TextText(Header(3), anchor, tenths, rotation, text));
    }

private:
    background::ElementHeader Header(int type) const {
        return {static_cast<std::uint8_t>(type),
                header.keyHigh,
                header.keyLow,
                length_,
                header.classA,
                header.classB,
                header.classC};
    }

    static std::string TileOf(PlanePoint at, double size) {
        std::size_t digits = size <= 999 ? 5 : size <= 9999 ? 4 : 3;
        auto padded = [&](double coordinate) {
            std::string number = std::to_string(static_cast<long>(std::floor(coordinate / size)));
            return std::string(digits - std::min(digits, number.size()), '0') + number;
        };
        return std::to_string(std::stoi(padded(at.x) + padded(at.y)));
    }

    void AddTo(const std::string& tile, double size, const std::string& element) {
        std::string& elements = package.tiles[tile];
        if (elements.empty()) elements = TileText(size);
        elements += element;
    }

    std::int16_t length_ = 0;
    std::string lastTile_;
    double lastTileSize_ = 0;
};

}  // namespace vexlator::test
