// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/mif/MifKeyword.h"

#include "formats/mif/MifLines.h"

#include <array>
#include <utility>

namespace vexlator::formats {

namespace {

constexpr std::array<std::pair<std::string_view, MifKeyword>, 13> keywords = {{
    {"DATA", MifKeyword::Data},
    {"POINT", MifKeyword::Point},
    {"ELLIPSE", MifKeyword::Ellipse},
    {"PLINE", MifKeyword::Polyline},
    {"REGION", MifKeyword::Region},
    {"TEXT", MifKeyword::Text},
    {"LINE", MifKeyword::Line},
    {"NONE", MifKeyword::None},
    {"BRUSH", MifKeyword::Style},
    {"CENTER", MifKeyword::Style},
    {"PEN", MifKeyword::Style},
    {"SYMBOL", MifKeyword::Style},
    {"SMOOTH", MifKeyword::Style},
}};

constexpr std::array<std::pair<std::string_view, MifKeyword>, 5> extendedKeywords = {{
    {"ARC", MifKeyword::Arc},
    {"RECT", MifKeyword::Rectangle},
    {"ROUNDRECT", MifKeyword::RoundedRectangle},
    {"MULTIPOINT", MifKeyword::PointSet},
    {"COLLECTION", MifKeyword::Collection},
}};

MifKeyword ObjectThatBegins(std::string_view upper) {
    std::string_view word = TrimmedLine(upper);
    word = word.substr(0, word.find_first_of(mifBlanks));
    for (auto [name, keyword] : extendedKeywords)
        if (word == name) return keyword;
    return MifKeyword::Unknown;
}

}  // namespace

MifKeyword MifKeywordOf(std::string_view upper, bool extended) {
    MifKeyword object = ObjectThatBegins(upper);
    if (extended && object != MifKeyword::Unknown) return object;
    for (auto [name, keyword] : keywords)
        if (upper.find(name) != std::string_view::npos) return keyword;
    return object;
}

}  // namespace vexlator::formats
