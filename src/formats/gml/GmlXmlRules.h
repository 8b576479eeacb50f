// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>

namespace vexlator::formats {

/// The number of values of a point in the named coordinate system; nothing for an unknown one.
using AxisCount = std::function<std::optional<std::size_t>(std::string_view srsName)>;

struct GmlXmlRules {
    /// The rules of files by FME: only elements of the "fme" namespace are properties, also those with child
    /// elements. A text that is not a number counts as 0. srsDimension="3" applies to the rest of the
    /// feature.
    bool lineLayout = false;
    bool fullRings = true;
    AxisCount axisCount;  ///< may be empty
};

}  // namespace vexlator::formats
