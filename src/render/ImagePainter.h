// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/Course.h"
#include "render/Scene.h"

class QPainter;

namespace vexlator::render {

/// Paints the part of an image that lies in the part of the picture. Neighbours that share an edge on the
/// ground leave no gap between them.
/// @param toPixels from the image's pixels to the picture's
/// @param finer decoded pixels for a pixel of the picture, in each direction, if the image has as many
/// @return false if it cannot be decoded; nothing is painted then
bool PaintImage(QPainter& painter, const PixelBox& part, const Image& image, const Placement& toPixels,
                double finer);

}  // namespace vexlator::render
