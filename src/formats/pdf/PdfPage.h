// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the pages of a book are beside their pictures: names for the list of pages, places on earth.
namespace vexlator::formats {

constexpr double pointsPerMillimetre = 72 / 25.4;

/// Where the ground that a page shows is.
struct PdfPlace {
    double left = 0, bottom = 0, right = 0, top = 0;  ///< of the map on the page, in points
    /// Latitude and longitude of the map's corners in degrees, on the datum of `system`: lower left, upper
    /// left, upper right, lower right.
    std::array<double, 8> corners{};
    std::string system;       ///< the map's coordinate system, as WKT
    bool isProjected = true;  ///< false: the system is one of latitude and longitude
};

/// The entry of a page dictionary that says where its map is (ISO 32000-2, 12.10: geospatial features).
std::string PdfViewport(const PdfPlace& place);

/// The list of a book's pages that viewers show beside it.
class PdfOutline {
public:
    struct Entry {
        std::string title;
        int page = 0;  ///< number of the page's object
    };
    /// Calls `write(number, content)` for its objects, whose numbers come from `newObject`; returns the
    /// number of the first. 0 without entries.
    static int Write(const std::vector<Entry>& entries, const std::function<int()>& newObject,
                     const std::function<void(int, std::string_view)>& write);
};

}  // namespace vexlator::formats
