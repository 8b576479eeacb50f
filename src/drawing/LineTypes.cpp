// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/LineTypes.h"

#include "platform/AsciiCase.h"
#include "platform/Paths.h"

namespace vexlator::drawing {

namespace {

constexpr std::array<LineType, 14> lineTypes = {{
    {"LineRiver", {10, 4}, true, {">"}},
    {"LineDitch", {10, 4}, true, {"X"}},
    {"LineChannel_Drainage", {10, 4}, true, {"O"}},
    {"LineRockFace", {20, 15}, true, {"RockFace"}},
    {"LineSlopeMove", {10, 4}, true, {"v", "^"}},
    {"LineWetBed", {10, 4}, true, {"|"}},
    {"DASHED", {3, 1.5}, false, {}},
    {"HIDDEN", {1.5, 1}, false, {}},
    {"DOT", {0.4, 1.2}, false, {}},
    {"DOTTED", {0.4, 1.2}, false, {}},
    {"DASHDOT", {3, 1.2, 0.4, 1.2}, false, {}},
    {"CENTER", {6, 1.5, 1.5, 1.5}, false, {}},
    {"DIVIDE", {3, 1.2, 0.4, 1.2, 0.4, 1.2}, false, {}},
    {"PHANTOM", {6, 1.5, 1.5, 1.5, 1.5, 1.5}, false, {}},
}};

}  // namespace

double LineType::Period() const {
    double period = 0;
    for (double length : lengths) period += length;
    return period;
}

std::uint8_t LineTypeNumber(std::string_view name) {
    if (name.empty()) return 0;
    for (std::size_t i = 0; i < lineTypes.size(); ++i)
        if (platform::SameNoCase(lineTypes[i].name, name)) return static_cast<std::uint8_t>(i + 1);
    return 0;
}

const LineType& LineTypeOf(std::uint8_t number) {
    return lineTypes.at(number - 1U);
}

}  // namespace vexlator::drawing
