// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/PageLayout.h"

#include "platform/AsciiCase.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vexlator::mapbook {

namespace {

/// Millimetres.
constexpr double margin = 9, labels = 4.5, gap = 4;
constexpr double usualDenominator = 500;
constexpr double worthwhile = 1.5;  ///< how much larger the scale on larger paper has to be
constexpr double leastSide = 1e-9;  ///< ground units

struct Sheet {
    double shortSide, longSide;
    double column;  ///< width of the column beside a landscape map
    double strip;   ///< height of the strip below a portrait map
};
constexpr Sheet a4{210, 297, 64, 66}, a3{297, 420, 78, 78};

void LayOutLandscape(PageLayout& page, const Sheet& sheet) {
    constexpr double titles = 78, marks = 14;
    page.width = sheet.longSide;
    page.height = sheet.shortSide;
    double right = page.width - margin, bottom = page.height - margin, column = right - sheet.column;
    page.map = {margin + labels, margin + labels, column - gap, bottom - labels};
    page.titles = {column, bottom - titles, right, bottom};
    page.marks = {column, page.titles.top - gap - marks, right, page.titles.top - gap};
    page.legend = {column, margin, right, page.marks.top - gap};
}

void LayOutPortrait(PageLayout& page, const Sheet& sheet) {
    constexpr double marks = 14, titleShare = 0.58;
    page.width = sheet.shortSide;
    page.height = sheet.longSide;
    double right = page.width - margin, bottom = page.height - margin, strip = bottom - sheet.strip;
    page.map = {margin + labels, margin + labels, right, strip - gap - labels};
    page.titles = {margin, strip, margin + (right - margin) * titleShare, bottom};
    page.marks = {page.titles.right + gap, bottom - marks, right, bottom};
    page.legend = {page.titles.right + gap, strip, right, page.marks.top - gap};
    page.legendColumns = 2;
}

/// The page with its scale.
PageLayout PageOn(PaperSize size, bool isPortrait, const drawing::Box& frame, const LayoutChoice& choice) {
    PageLayout page;
    page.size = size;
    const Sheet& sheet = size == PaperSize::A4 ? a4 : a3;
    isPortrait ? LayOutPortrait(page, sheet) : LayOutLandscape(page, sheet);
    double width = std::max(frame.maxX - frame.minX, leastSide),
           height = std::max(frame.maxY - frame.minY, leastSide);
    double least =
        1000 * choice.metresPerUnit * std::max(width / page.map.Width(), height / page.map.Height());
    page.denominator = choice.denominator > 0 ? choice.denominator : RoundDenominator(least);
    double unit = page.MillimetresPerUnit(choice.metresPerUnit);
    double x = frame.minX / 2 + frame.maxX / 2, y = frame.minY / 2 + frame.maxY / 2;
    double halfWidth = page.map.Width() / unit / 2, halfHeight = page.map.Height() / unit / 2;
    page.ground = {x - halfWidth, y - halfHeight, x + halfWidth, y + halfHeight};
    return page;
}

PageLayout BestOn(PaperSize size, const drawing::Box& frame, const LayoutChoice& choice) {
    PageLayout landscape = PageOn(size, false, frame, choice), portrait = PageOn(size, true, frame, choice);
    if (landscape.denominator != portrait.denominator)
        return landscape.denominator < portrait.denominator ? landscape : portrait;
    return frame.maxX - frame.minX >= frame.maxY - frame.minY ? landscape : portrait;
}

}  // namespace

std::string PageLayout::PaperText() const {
    return std::string(size == PaperSize::A4 ? "A4" : "A3") + (IsPortrait() ? " portrait" : " landscape");
}

double RoundDenominator(double least) {
    constexpr std::array steps{1.0, 1.25, 2.0, 2.5, 5.0, 10.0};
    constexpr double rounding = 1e-9;  // a frame that fits exactly shall fit
    if (!(least > 1)) return 1;
    double power = std::pow(10, std::floor(std::log10(least)));
    for (double step : steps)
        if (step * power >= least * (1 - rounding)) return std::round(step * power * 4) / 4;
    return 10 * power;
}

PageLayout LayoutFor(const drawing::Box& frame, const LayoutChoice& choice) {
    if (platform::SameNoCase(choice.paper, "A3")) return BestOn(PaperSize::A3, frame, choice);
    PageLayout small = BestOn(PaperSize::A4, frame, choice);
    bool isGiven = platform::SameNoCase(choice.paper, "A4") || choice.denominator > 0;
    if (isGiven || small.denominator <= usualDenominator) return small;
    PageLayout large = BestOn(PaperSize::A3, frame, choice);
    return large.denominator * worthwhile <= small.denominator ? large : small;
}

drawing::Box UsualFrame(util::PlanePoint middle) {
    return PageOn(PaperSize::A4, false, {middle.x, middle.y, middle.x, middle.y},
                  {.paper = "", .denominator = usualDenominator})
        .ground;
}

}  // namespace vexlator::mapbook
