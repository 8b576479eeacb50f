// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/View.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::vdfpicture {

enum class Format { Png, Svg, Pdf };

struct Options {
    std::string source, target;
    Format format = Format::Png;
    int width = 1600, height = 1000;
    std::optional<render::Box> extent;
    std::vector<std::string> layers;  ///< empty: all
    bool hasFurniture = false;
};

/// An option that has no such value, or a target that is no picture.
struct WrongUse {
    std::string reason;  ///< "" when the usage says it all
};

constexpr int largestSide = 20000;  ///< pixels

/// Options may stand before and behind the files. @throws WrongUse
Options ParseOptions(const std::vector<std::string>& arguments);

}  // namespace vexlator::vdfpicture
