// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/builder/AttributeRecords.h"
#include "background/builder/BuildSettings.h"
#include "background/classification/Classifier.h"
#include "background/package/FeatureHeader.h"
#include "background/styling/LayerStyles.h"
#include "config/Run.h"
#include "drawing/DrawingFile.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>

namespace vexlator::background {

/// What a drawing holds, as its first entity tells.
enum class DrawingKind {
    Empty,       ///< nothing
    Plain,       ///< entities without attributes: elements refer to their layer
    Attributed,  ///< elements refer to a record of their feature's attributes
    Classified   ///< elements carry the identifier of their feature
};
DrawingKind KindOf(drawing::DrawingFile& drawing);

/// What elements look like: the cell of a style row that serves them.
enum class StyleCell { Points, Lines, Areas };
StyleCell CellOf(const drawing::Entity& entity);

/// Fills the headers of a drawing's elements, and writes the layer file that they refer to.
///
/// In classified mode, when there is no style and the first polyline is classified, features look as their
/// classes say; else as the style row of their layer says.
class FeatureHeaders {
public:
    /// Writes the layers into the layer file, where elements refer to them.
    /// @throws platform::ReadError for a damaged drawing
    FeatureHeaders(config::Run& run, const BuildSettings& settings, drawing::DrawingFile& drawing,
                   PackageWriter& writer);
    /// Writes the records of a chunk's entities into the layer file. Each chunk in turn, before the headers
    /// of its entities are asked for.
    void WriteRecords(drawing::Drawing& chunk);
    /// Gives the gazetteer its value of an entity, unless it lies where a package has no tiles.
    void AddToSearch(const drawing::Entity& entity);

    bool IsClassifiedMode() const { return isClassifiedMode_; }
    bool IsHidden(const std::string& layer) { return LookOf(layer).isHidden; }
    /// How many layers have been asked about.
    std::size_t LayersMet() const { return looks_.size(); }
    /// The header of an entity of the drawing.
    FeatureHeader Of(const drawing::Entity& entity, StyleCell cell);
    /// The header of a part of a symbol, and of what a curve becomes: all that they have is a layer.
    FeatureHeader OfPart(const std::string& layer, StyleCell cell);

private:
    struct LayerLook {
        std::int32_t number = 0;
        const LayerStyle* style = nullptr;
        bool isHidden = false;
    };
    void WriteLayers(const drawing::Drawing& drawing, PackageWriter& writer);
    const LayerLook& LookOf(const std::string& layer);
    void ApplyStyle(const LayerLook& look, StyleCell cell, FeatureHeader& header) const;

    DrawingKind kind_;
    Classifier classifier_;
    AttributeRecords records_;
    LayerStyles styles_;
    bool isClassifiedMode_;
    std::unordered_map<const std::string*, std::int32_t> layerNumbers_;
    std::unordered_map<const std::string*, LayerLook> looks_;
    const std::string* lastLayer_ = nullptr;
    LayerLook lastLook_;
};

}  // namespace vexlator::background
