// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/styling/StyleEdits.h"
#include "config/Run.h"
#include "drawing/Drawing.h"
#include "render/Scene.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// What the styling window does beside itself, in a worker.
namespace vexlator::desktop {

/// What is to be shown of a drawing file.
struct DrawingOrder {
    std::string path;
    std::vector<background::DrawingChange> changes;
    /// Fields and height of annotation texts; none: no texts.
    std::optional<background::BackgroundStyle> annotation;
};

/// A drawing as it is shown: read, and changed.
struct StyledDrawing {
    DrawingOrder order;
    std::unique_ptr<drawing::Drawing> drawing;
    std::shared_ptr<const render::Scene> scene;
    std::vector<std::string> layers;      ///< without that of annotation texts
    std::vector<std::string> attributes;  ///< names
};

/// @throws platform::ReadError: file, place and reason
std::shared_ptr<const StyledDrawing> ReadStyledDrawing(config::Run& run, const DrawingOrder& order);

/// Writes the drawing with its changes; no annotation. @throws platform::ReadError, platform::WriteError
void SaveStyledDrawing(const DrawingOrder& order, const std::string& path);

/// The drawing of any source. One that is none is converted, into the folder. @throws std::runtime_error:
/// why none comes of it
std::string DrawingOfSource(config::Run& run, const std::string& source, const std::string& folder);

/// What the device shows of the drawing with that style: builds its package in a temporary folder and reads
/// it. @throws platform::ReadError, platform::WriteError
std::shared_ptr<const render::Scene> DeviceScene(config::Run& run, const DrawingOrder& order,
                                                 const background::BackgroundStyle& style, bool simple);

}  // namespace vexlator::desktop
