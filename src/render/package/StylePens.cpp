// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/package/StylePens.h"

#include "background/package/PackageElements.h"
#include "render/LineTypes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace vexlator::render {

namespace {

using background::ClassBytes;
using background::MobilePattern;

constexpr std::uint8_t flagsOfClassC = 48, mobileColour = 1;
constexpr double hundredthsPerPixel = 2540 / 96.0;
constexpr std::size_t areasColumn = 2;

std::string_view LineTypeName(MobilePattern pattern) {
    constexpr std::array<std::string_view, 4> names = {"", "DASHED", "DOTTED", "DASHDOT"};
    auto number = static_cast<std::size_t>(pattern);
    return number < names.size() ? names[number] : "";
}

Pen PenOf(ClassBytes bytes, std::size_t column, const background::MobileStyles& mobileStyles) {
    background::ElementHeader header{};
    header.classA = 255;  // no theme
    header.classC = bytes.c;
    background::Look look = background::LookOf(header);
    Pen pen;
    if ((bytes.c & ~flagsOfClassC) == mobileColour) {
        pen = PenOfMobileStyle(background::LookOfFields(mobileStyles.FieldsOf(bytes.b)), column);
    } else {
        pen.line = black | look.rgb;
        if (column == areasColumn) pen.fill = WithAlpha(look.rgb, areaAlpha);
    }
    if (look.isThick) pen.weight = std::max(pen.weight, thickWeight);
    return pen;
}

}  // namespace

Pen PenOfMobileStyle(const background::MobileStyleLook& look, std::size_t column) {
    Pen pen;
    pen.line = black | look.rgb;
    if (look.width > 1) pen.weight = static_cast<std::int32_t>(std::lround(look.width * hundredthsPerPixel));
    pen.lineType = LineTypeNumber(LineTypeName(look.pattern));
    if (column == areasColumn && look.pattern != MobilePattern::None)
        pen.fill = WithAlpha(look.rgb, areaAlpha);
    return pen;
}

StyledLayers StyleLayers(const Scene& scene, const background::LayerStyles& styles,
                         const background::MobileStyles& mobileStyles) {
    StyledLayers styled;
    for (const SceneLayer& layer : scene.Layers()) {
        const background::LayerStyle* style = styles.StyleFor(layer.name);
        styled.hidden.push_back(style && style->hidden);
        const ClassBytes bytes[pensPerLayer] = {style ? style->points : ClassBytes{},
                                                style ? style->lines : ClassBytes{},
                                                style ? style->areas : ClassBytes{}};
        for (std::size_t column = 0; column < pensPerLayer; ++column)
            styled.pens.push_back(style ? std::optional(PenOf(bytes[column], column, mobileStyles))
                                        : std::nullopt);
    }
    return styled;
}

}  // namespace vexlator::render
