// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/package/StylePens.h"

#include "background/package/PackageElements.h"
#include "drawing/LineTypes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace vexlator::render {

namespace {

using background::ElementHeader;
using background::MobilePattern;
using background::MobileSymbol;

constexpr std::uint8_t noTheme = 255;
constexpr double hundredthsPerPixel = 2540 / 96.0;
constexpr std::size_t pointsColumn = 0, areasColumn = 2;

std::string_view LineTypeName(MobilePattern pattern) {
    constexpr std::array<std::string_view, 4> names = {"", "DASHED", "DOTTED", "DASHDOT"};
    auto number = static_cast<std::size_t>(pattern);
    return number < names.size() ? names[number] : "";
}

Hatch HatchOf(MobilePattern pattern) {
    switch (pattern) {
        case MobilePattern::Horizontal:
            return Hatch::Horizontal;
        case MobilePattern::Vertical:
            return Hatch::Vertical;
        case MobilePattern::Cross:
            return Hatch::Cross;
        case MobilePattern::Diagonal:
            return Hatch::Diagonal;
        case MobilePattern::DiagonalCross:
            return Hatch::DiagonalCross;
        default:
            return Hatch::Solid;
    }
}

Marker MarkerOf(MobileSymbol symbol) {
    constexpr std::array<Marker, 7> markers = {Marker::Circle,  Marker::Square, Marker::Triangle,
                                               Marker::Diamond, Marker::Cross,  Marker::Plus,
                                               Marker::Star};
    return markers[static_cast<std::size_t>(symbol)];
}

std::int32_t WeightOf(double pixels) {
    return static_cast<std::int32_t>(std::lround(pixels * hundredthsPerPixel));
}

}  // namespace

Pen PenOfElement(const ElementHeader& header, std::size_t column,
                 const background::MobileStyles& mobileStyles) {
    const background::Look look = background::LookOf(header);
    Pen pen;
    if (look.isMobile) {
        pen = PenOfMobileStyle(background::LookOfFields(mobileStyles.FieldsOf(header.classB)), column);
    } else {
        pen.line = black | look.rgb;
        if (column == areasColumn) pen.fill = WithAlpha(look.rgb, areaAlpha);
    }
    if (look.isThick) pen.weight = std::max(pen.weight, thickWeight);
    return pen;
}

Pen PenOfMobileStyle(const background::MobileStyleLook& look, std::size_t column) {
    Pen pen;
    pen.line = black | look.rgb;
    if (look.width > 1) pen.weight = WeightOf(look.width);
    pen.lineType = drawing::LineTypeNumber(LineTypeName(look.pattern));
    if (column == pointsColumn) {
        pen.marker = MarkerOf(look.symbol);
        pen.weight = WeightOf(look.SymbolSize());
    }
    if (column != areasColumn || look.pattern == MobilePattern::None) return pen;
    pen.hatch = HatchOf(look.pattern);
    pen.fill = pen.hatch == Hatch::Solid ? WithAlpha(look.rgb, areaAlpha) : pen.line;
    return pen;
}

StyledLayers StyleLayers(const Scene& scene, const background::LayerStyles& styles,
                         const background::MobileStyles& mobileStyles) {
    StyledLayers styled;
    for (const SceneLayer& layer : scene.Layers()) {
        const background::LayerStyle* style = styles.StyleFor(layer.name);
        styled.hidden.push_back(style && style->hidden);
        if (!style) {
            styled.pens.resize(styled.pens.size() + pensPerLayer);
            continue;
        }
        const background::ClassBytes bytes[pensPerLayer] = {style->points, style->lines, style->areas};
        for (std::size_t column = 0; column < pensPerLayer; ++column) {
            ElementHeader header{};
            header.classA = noTheme;
            header.classB = bytes[column].b;
            header.classC = bytes[column].c;
            styled.pens.emplace_back(PenOfElement(header, column, mobileStyles));
        }
    }
    return styled;
}

}  // namespace vexlator::render
