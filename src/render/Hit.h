// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/Course.h"
#include "render/Scene.h"
#include "render/View.h"

#include <optional>
#include <vector>

/// Finds the item at a position of the picture, and the outline of an item.
namespace vexlator::render {

/// The outlines of an item in pixels: its line, its rings, its curve; the box of a text or symbol; a single
/// point for a dot.
std::vector<Course> OutlineOf(const Scene& scene, std::size_t item, const View& view);

/// The item that a user points at: the nearest line, dot or edge within `reach` pixels, the upper one if two
/// are equally near; else the topmost area around the pixel. Items of hidden layers (as in PaintOptions) are
/// excluded.
std::optional<std::size_t> ItemAt(const Scene& scene, const View& view, PlanePoint pixel, double reach,
                                  const std::vector<bool>& hiddenLayers = {});

/// Length of an item in ground units: of its line, its rings or its curve; 0 for dots, texts and symbols.
double LengthOf(const Scene& scene, std::size_t item);

}  // namespace vexlator::render
