// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"
#include "drawing/DrawingFile.h"
#include "export/photos/Photos.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace vexlator::exporter {

/// An export that has begun: its form is visible, its drawing's file is open. Every exporter makes one first.
struct BegunExport {
    /// The answer was No: the exporter must not write anything, and `outcome` says so.
    bool IsStopped() const { return outcome.status == config::Outcome::Status::StoppedByUser; }
    /// Calls `visit(const Drawing&)` with every chunk of the drawing. Photographs have the names that the
    /// settings demand.
    /// @throws platform::ReadError
    template <typename Visit>
    void ForEachChunk(Visit visit) {
        file->ForEachChunk([&](drawing::Drawing& chunk) {
            photoPaths.ApplyTo(chunk);
            visit(std::as_const(chunk));
        });
    }

    std::unique_ptr<ui::FormView> view;
    std::unique_ptr<drawing::DrawingFile> file;
    PhotoPaths photoPaths;
    config::Outcome outcome;  ///< its target is `targetPath` unless the exporter changes it
};

/// Opens the drawing's file, finds its job, asks whether the job may be exported again and copies its
/// photographs. The list of photographs has the extension `photoList`, which no table of the export may have.
/// @throws platform::ReadError if the drawing cannot be read
BegunExport BeginExport(config::Run& run, std::string_view formName, std::string_view drawingPath,
                        std::string_view targetPath, std::string_view photoList = "CSV");

enum class LayerZero { Export, Skip };

/// One layer of an export, and the facts needed before its first byte.
struct ExportLayer {
    /// Counts one more entity.
    void Take(const drawing::EntityView& entity);

    const drawing::Layer& layer;
    std::uint32_t index = 0;                       ///< number of the layer in the drawing
    std::string fileName = {};                     ///< base name of its files, safe and unique
    std::uint64_t entities = 0;                    ///< none only in a layer that EmptyLayers wants
    std::uint64_t pointsAndLines = 0;              ///< number of points, symbols and polylines
    std::vector<std::string> names = {};           ///< attribute names of the first entity
    std::vector<drawing::AttributeSet> sets = {};  ///< attribute names, each once
    std::unordered_set<drawing::AttributeSet> knownSets = {};
    drawing::AttributeSet lastSet = 0;
    bool ascii = true, windows = true;  ///< all texts are ASCII; all texts fit Windows-1252
};

/// Which layers without entities are exported all the same; none: no such layer.
using EmptyLayers = std::function<bool(const drawing::Layer&)>;

/// The layers that are neither frozen nor empty, in order. Reads the drawing once.
/// @throws platform::ReadError
std::vector<ExportLayer> FindLayers(BegunExport& begun, LayerZero layerZero,
                                    const EmptyLayers& emptyLayers = nullptr);

/// The entities of one layer in one chunk of the drawing, in drawing order.
struct LayerPart {
    class Iterator {
    public:
        Iterator(const drawing::Drawing& chunk, const std::uint32_t* index) : chunk_(&chunk), index_(index) {}
        drawing::EntityView operator*() const { return {*chunk_, *index_}; }
        Iterator& operator++() {
            ++index_;
            return *this;
        }
        bool operator!=(const Iterator& other) const { return index_ != other.index_; }

    private:
        const drawing::Drawing* chunk_;
        const std::uint32_t* index_;
    };
    // NOLINTBEGIN(readability-identifier-naming): what range-based loops look for
    Iterator begin() const { return {chunk, indexes.data()}; }
    Iterator end() const { return {chunk, indexes.data() + indexes.size()}; }
    // NOLINTEND(readability-identifier-naming)

    const drawing::Drawing& chunk;
    std::span<const std::uint32_t> indexes;
};

/// Reads the drawing a second time and calls `write` with every part of these layers, in the order of the
/// layers within each chunk. The first argument is the layer's index in `layers`. Then calls `finish` for
/// each layer in order, which returns its number of features. Counts both in the outcome.
/// @throws platform::ReadError
void WriteLayers(config::Run& run, BegunExport& begun, const std::vector<ExportLayer>& layers,
                 const std::function<void(std::size_t, const LayerPart&)>& write,
                 const std::function<std::uint64_t(std::size_t)>& finish);

/// The template path of a layer's feature code. A missing template is made from the attribute names of the
/// layer's first entity.
std::string TemplateFor(config::Run& run, const ExportLayer& layer);

// --- For exporters that process whole layers

/// Opens the whole drawing of an export. @throws platform::ReadError
void OpenWhole(const BegunExport& begun, std::string_view drawingPath, drawing::Drawing& drawing);

/// A layer with all its entities.
struct WholeLayer : ExportLayer {
    drawing::SelectionSet& set;
};

/// Visits the layers that are neither frozen nor empty, in order.
void ForEachLayer(config::Run& run, drawing::Drawing& drawing, ui::FormView& view, LayerZero layerZero,
                  const std::function<void(const WholeLayer&)>& visit);

}  // namespace vexlator::exporter
