// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/pdf/PdfPage.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What is known of the pages of a map book beside their pictures: the configuration file of jpg2pdf.
namespace vexlator::mapbook {

/// One page. Lengths in millimetres from the paper's upper left corner.
struct ListedPage {
    std::string image;  ///< path text of its picture
    std::string title;
    double width = 0, height = 0;  ///< of the paper; 0: by the picture's pixels
    double mapLeft = 0, mapTop = 0, mapRight = 0, mapBottom = 0;
    std::optional<std::array<double, 8>> corners = {};  ///< of the map, as in formats::PdfPlace
};

struct PageList {
    std::string title;
    std::string system;       ///< coordinate system of the corners as WKT; "": pages are not placed
    bool isProjected = true;  ///< false: the system is one of latitude and longitude
    std::vector<ListedPage> pages;

    /// The place on earth of a page's map; nothing if it is not known.
    std::optional<formats::PdfPlace> PlaceOf(const ListedPage& page) const;
};

/// The text of the file: section [BOOK] with the keys Title, System and Degrees, then [PAGE1], [PAGE2] ...
/// with Image, Title, Paper (width,height), Map (left,top,right,bottom) and Corners (latitude,longitude four
/// times).
std::string PageListText(const PageList& list);
/// Keys that are missing have the defaults above. The list ends before the first missing section.
/// @throws platform::ReadError for numbers that are none, without the name of the file
PageList ReadPageList(std::string_view text);

}  // namespace vexlator::mapbook
