// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/Scene.h"

#include <cstddef>

namespace vexlator::render {

struct UsualExtent {
    Box extent;
    std::size_t outside = 0;  ///< items that do not lie in it whole
};

/// The extent for a picture that shows what belongs together: that of the scene, unless few items, at most
/// one in fifty, lie so far from all others that the rest would fill less than a third of it.
UsualExtent FindUsualExtent(const Scene& scene);

}  // namespace vexlator::render
