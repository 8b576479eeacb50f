// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gis/TargetStyle.h"

#include "drawing/Palette.h"
#include "util/Angles.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <cstdint>

namespace vexlator::gis {

namespace {

/// White is black on paper.
std::string ColourText(drawing::Colour colour) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    constexpr std::uint32_t white = 0xFFFFFF;
    std::uint32_t rgb = drawing::RgbOf(colour);
    if (rgb == white) rgb = 0;
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4) text += digits[rgb >> shift & 0xF];
    return text;
}

/// Weights are hundredths of a millimetre, a pen's width is pixels of a quarter of one.
std::string PenText(const drawing::Style& style) {
    constexpr std::int32_t perPixel = 25, widest = 7;
    std::int32_t pixels = std::clamp(style.lineWeight / perPixel, 1, widest);
    return "PEN(c:" + ColourText(style.colour) + ",w:" + std::to_string(pixels) + "px)";
}

std::string LabelText(const drawing::EntityView& entity) {
    std::string text = util::ReplaceAll(util::ReplaceAll(entity.text(), "\\", "\\\\"), "\"", "\\\"");
    return "LABEL(t:\"" + text + "\",f:\"Arial\",s:" + util::FormatShortest(entity.height()) +
           "g,a:" + util::FormatShortest(entity.rotation() * util::degreesPerRadian) +
           ",p:1,c:" + ColourText(entity.style().colour) + ")";
}

}  // namespace

std::string StyleText(const drawing::EntityView& entity, ShapeKind kind) {
    const drawing::Style& style = entity.style();
    if (entity.kindCode() == drawing::Kind::Text) return LabelText(entity);
    if (kind == ShapeKind::Place)
        return "SYMBOL(c:" + ColourText(style.colour) + ",id:\"mapinfo-sym-34,ogr-sym-3\",s:8pt)";
    if (kind == ShapeKind::Line) return PenText(style);
    std::string brush = entity.isFilled() ? "BRUSH(fc:" + ColourText(style.fillColour) + ");" : "";
    return brush + PenText(style);
}

}  // namespace vexlator::gis
