// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>

namespace vexlator::formats {

/// How many values a point has in a coordinate system of that name; nothing for one that is not known.
using AxisCount = std::function<std::optional<std::size_t>(std::string_view srsName)>;

struct GmlXmlRules {
    /// Only elements of the "fme" namespace are properties, those with child elements too; a text that is no
    /// number counts as 0; srsDimension="3" holds for the rest of the feature.
    bool lineLayout = false;
    bool fullRings = true;
    AxisCount axisCount;  ///< may be empty
};

}  // namespace vexlator::formats
