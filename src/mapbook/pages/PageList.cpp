// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/pages/PageList.h"

#include "config/Ini.h"
#include "platform/Errors.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <span>

namespace vexlator::mapbook {

namespace {

constexpr double longestSide = 5080;  ///< millimetres, 200 inches: readers take no larger paper

std::string SectionOf(std::size_t page) {
    return "PAGE" + std::to_string(page + 1);
}

std::string Joined(std::span<const double> numbers) {
    std::string text;
    for (double number : numbers) text += (text.empty() ? "" : ",") + util::FormatShortest(number);
    return text;
}

/// Reads as many numbers as there are, or none. @throws platform::ReadError
bool TakeNumbers(const config::IniText& ini, const std::string& section, std::string_view key,
                 std::span<double> numbers) {
    std::string_view value = ini.Value(section, key);
    if (value.empty()) return false;
    bool isGood = util::CountOf(value, ",") + 1 == numbers.size();
    for (std::size_t i = 0; isGood && i < numbers.size(); ++i) {
        std::string_view field = util::Trim(util::GetCommaField(i, value));
        auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), numbers[i]);
        isGood = error == std::errc() && end == field.data() + field.size() && std::isfinite(numbers[i]);
    }
    if (!isGood)
        throw platform::ReadError("", "[" + section + "] " + std::string(key),
                                  std::to_string(numbers.size()) +
                                      " numbers are expected, separated by commas, not " +
                                      std::string(value));
    return true;
}

ListedPage ReadPage(const config::IniText& ini, const std::string& section) {
    ListedPage page;
    page.image = ini.Value(section, "Image");
    page.title = ini.Value(section, "Title");
    std::array<double, 2> paper{};
    if (TakeNumbers(ini, section, "Paper", paper)) {
        auto isSide = [](double side) { return side > 0 && side <= longestSide; };
        if (!std::ranges::all_of(paper, isSide))
            throw platform::ReadError("", "[" + section + "] Paper", "no paper has this size");
        page.width = paper[0];
        page.height = paper[1];
    }
    std::array<double, 4> map{};
    TakeNumbers(ini, section, "Map", map);
    std::tie(page.mapLeft, page.mapTop, page.mapRight, page.mapBottom) =
        std::tie(map[0], map[1], map[2], map[3]);
    std::array<double, 8> corners{};
    if (TakeNumbers(ini, section, "Corners", corners)) page.corners = corners;
    return page;
}

}  // namespace

std::optional<formats::PdfPlace> PageList::PlaceOf(const ListedPage& page) const {
    if (!page.corners || system.empty() || page.height <= 0) return std::nullopt;
    auto points = [](double millimetres) { return millimetres * formats::pointsPerMillimetre; };
    return formats::PdfPlace{.left = points(page.mapLeft),
                             .bottom = points(page.height - page.mapBottom),
                             .right = points(page.mapRight),
                             .top = points(page.height - page.mapTop),
                             .corners = *page.corners,
                             .system = system,
                             .isProjected = isProjected};
}

std::string PageListText(const PageList& list) {
    std::string text;
    config::AppendIniSection(text, "BOOK");
    config::AppendIniValue(text, "Title", list.title);
    config::AppendIniValue(text, "System", list.system);
    config::AppendIniValue(text, "Degrees", list.isProjected ? "0" : "1");
    for (std::size_t i = 0; i < list.pages.size(); ++i) {
        const ListedPage& page = list.pages[i];
        config::AppendIniSection(text, SectionOf(i));
        config::AppendIniValue(text, "Image", page.image);
        config::AppendIniValue(text, "Title", page.title);
        config::AppendIniValue(text, "Paper", Joined(std::array{page.width, page.height}));
        config::AppendIniValue(text, "Map",
                               Joined(std::array{page.mapLeft, page.mapTop, page.mapRight, page.mapBottom}));
        if (page.corners) config::AppendIniValue(text, "Corners", Joined(*page.corners));
    }
    return text;
}

PageList ReadPageList(std::string_view text) {
    config::IniText ini(text);
    PageList list;
    list.title = ini.Value("BOOK", "Title");
    list.system = ini.Value("BOOK", "System");
    list.isProjected = ini.Value("BOOK", "Degrees") != "1";
    while (!ini.Value(SectionOf(list.pages.size()), "Image").empty())
        list.pages.push_back(ReadPage(ini, SectionOf(list.pages.size())));
    return list;
}

}  // namespace vexlator::mapbook
