// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/Course.h"
#include "render/Scene.h"
#include "render/View.h"

#include <optional>
#include <vector>

/// Which item a place on the picture means, and where an item lies on it.
namespace vexlator::render {

/// The courses of an item in pixels: its line, its rings, its curve; the box of a text or symbol; a point
/// alone for a dot.
std::vector<Course> OutlineOf(const Scene& scene, std::size_t item, const View& view);

/// The item that a person means who points at a pixel: the nearest line, dot or edge within `reach` pixels,
/// the upper one of two as near; else the uppermost area around the pixel. Layers that are hidden (as in
/// PaintOptions) have none.
std::optional<std::size_t> ItemAt(const Scene& scene, const View& view, PlanePoint pixel, double reach,
                                  const std::vector<bool>& hiddenLayers = {});

/// Length of an item in ground units: of its course, its rings or its curve; 0 for dots, texts and symbols.
double LengthOf(const Scene& scene, std::size_t item);

}  // namespace vexlator::render
