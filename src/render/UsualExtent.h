// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/Scene.h"

#include <cstddef>

namespace vexlator::render {

struct UsualExtent {
    Box extent;
    std::size_t outside = 0;  ///< number of items that are not completely inside
};

/// The extent for a picture of the main contents: that of the scene, unless a few items, at most one in
/// fifty, are so far from all others that the rest would fill less than a third of it.
UsualExtent FindUsualExtent(const Scene& scene);

}  // namespace vexlator::render
