// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/Symbols.h"

#include <array>

namespace vexlator::mapbook {

namespace {

constexpr drawing::Colour ofFeature = 0;  ///< in a symbol; black elsewhere

}  // namespace

void DrawTadpole(drawing::Drawing& symbol) {
    symbol.setActiveFillColour(ofFeature);
    const std::array<drawing::Point, 3> head{{{-0.14, 0}, {0.14, 0}, {0, 0.42}}};
    drawing::Entity body = symbol.addPolyline(head);
    body.setClosed(true);
    body.setFilled(true);
    symbol.addLine({0, 0}, {0, 1});
}

void DrawArrow(drawing::Drawing& symbol) {
    symbol.setActiveFillColour(ofFeature);
    const std::array<drawing::Point, 3> tip{{{-0.18, 0.6}, {0.18, 0.6}, {0, 1}}};
    drawing::Entity head = symbol.addPolyline(tip);
    head.setClosed(true);
    head.setFilled(true);
    symbol.addLine({0, 0}, {0, 0.6});
}

}  // namespace vexlator::mapbook
