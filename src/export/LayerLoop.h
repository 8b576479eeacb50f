// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Session.h"
#include "drawing/Drawing.h"

#include <cstdint>
#include <functional>
#include <memory>
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

/// An export that has begun: its form is shown, its drawing open. Every exporter makes one first.
struct OpenExport {
    /// Opens the drawing, finds the job it came from, asks whether the job may be exported again and gathers
    /// its photographs. @throws platform::ReadError when the drawing cannot be read
    OpenExport(config::Session& session, std::string_view formName, std::string_view drawingPath,
               std::string_view targetPath);
    /// The answer was No: nothing may be written, and `outcome` says so.
    bool IsStopped() const { return outcome.status == config::Outcome::Status::StoppedByUser; }

    std::unique_ptr<ui::FormView> view;
    drawing::Drawing drawing;
    config::Outcome outcome;  ///< its target is `targetPath` until the exporter says otherwise
};

/// Visits the layers that are not frozen and not empty, in order. Returns how many.
std::uint64_t ForEachLayer(config::Session& session, drawing::Drawing& drawing, ui::FormView& view,
                           LayerZero layerZero, const std::function<void(const ExportLayer&)>& visit);

/// The template path of a layer's feature code. Where there is no template, one is written from the names of
/// the layer's first entity.
std::string TemplateFor(config::Session& session, const ExportLayer& layer);

}  // namespace vexlator::exporter
