// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Session.h"
#include "drawing/Drawing.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace vexlator::exporter {

/// One layer that an exporter writes.
struct ExportLayer {
    const drawing::Layer& layer;
    drawing::SelectionSet& set;  ///< its entities, at least one
    std::string fileName;        ///< base name of its files, safe and different for every layer
};

enum class LayerZero { Export, Skip };

/// What every exporter does before its layers: opens the drawing, finds the job it came from, asks whether
/// the job may be exported again and gathers its photographs. False when the answer was No.
/// @throws platform::ReadError when the drawing cannot be read
bool OpenForExport(config::Session& session, drawing::Drawing& drawing, std::string_view drawingPath,
                   std::string_view targetPath);

/// Visits the layers that are not frozen and not empty, in order. Returns how many.
std::uint64_t ForEachLayer(config::Session& session, drawing::Drawing& drawing, ui::FormView& view,
                           LayerZero layerZero, const std::function<void(const ExportLayer&)>& visit);

/// The template path of a layer's feature code. Where there is no template, one is written from the names of
/// the layer's first entity.
std::string TemplateFor(config::Session& session, const ExportLayer& layer);

}  // namespace vexlator::exporter
