// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "vdfjson/Coordinates.h"

namespace vexlator::vdfjson {

drawing::Point PointOf(element value) {
    std::array<double, 3> numbers{};
    std::size_t count = 0;
    for (element number : ArrayOf(value)) {
        if (count == numbers.size()) break;
        numbers[count++] = NumberOf(number);
    }
    if (count < 2) throw BadValue("is not [x, y] or [x, y, z]");
    return {numbers[0], numbers[1], numbers[2]};
}

void ReadPoints(element value, std::vector<drawing::Point>& points) {
    points.clear();
    try {
        for (element point : ArrayOf(value)) points.push_back(PointOf(point));
    } catch (const BadValue& error) {
        throw BadValue("position " + std::to_string(points.size() + 1), error.what());
    }
}

}  // namespace vexlator::vdfjson
