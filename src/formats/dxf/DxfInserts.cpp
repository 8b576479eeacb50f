// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/dxf/DxfInserts.h"

#include "formats/dxf/DxfGroups.h"

namespace vexlator::formats {

std::unordered_map<std::string, DxfColour> ReadDxfInsertColours(std::string_view text) {
    constexpr std::int64_t type = 0, handle = 5, index = 62, rgb = 420, mostColours = 255;
    std::unordered_map<std::string, DxfColour> colours;
    std::string own;
    DxfColour colour;
    bool isInsert = false;
    DxfGroups groups(text);
    for (DxfGroup group; groups.Next(group);) {
        if (group.code == type) {
            bool hasColour = colour.index != DxfColour::byLayer || colour.rgb >= 0;
            if (isInsert && hasColour && !own.empty()) colours[own] = colour;
            isInsert = group.value == "INSERT";
            colour = {};
            own.clear();
        } else if (isInsert && group.code == handle) {
            own = group.value;
        } else if (isInsert && group.code == index) {
            std::int64_t value = util::IntegerOf(group.value);
            if (value > 0 && value <= mostColours) colour.index = static_cast<int>(value);
        } else if (isInsert && group.code == rgb) {
            colour.rgb = util::IntegerOf(group.value) & 0xFFFFFF;
        }
    }
    return colours;
}

}  // namespace vexlator::formats
