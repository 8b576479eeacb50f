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

/// An option with an invalid value, or a target that is not a picture.
struct WrongUse {
    std::string reason;  ///< "" if the usage text is enough
};

constexpr int largestSide = 20000;  ///< size in pixels

/// Options can be before and after the files. @throws WrongUse
Options ParseOptions(const std::vector<std::string>& arguments);

}  // namespace vexlator::vdfpicture
