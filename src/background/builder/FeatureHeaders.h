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

/// The kind of data in a drawing, by its first entity.
enum class DrawingKind {
    Empty,       ///< nothing
    Plain,       ///< entities without attributes: elements refer to their layer
    Attributed,  ///< elements refer to a record of their feature's attributes
    Classified   ///< elements have the identifier of their feature
};
DrawingKind KindOf(drawing::DrawingFile& drawing);

/// The look of elements, by a column of a style row.
enum class StyleCell { Points, Lines, Areas };
StyleCell CellOf(const drawing::Entity& entity);

/// Fills the headers of a drawing's elements, and writes their layer file.
///
/// In classified mode, without a style and with a classified first polyline, the classes decide the look of
/// features. Otherwise the style row of their layer does.
class FeatureHeaders {
public:
    /// Writes the layers into the layer file, if elements refer to them.
    /// @throws platform::ReadError for a damaged drawing
    FeatureHeaders(config::Run& run, const BuildSettings& settings, drawing::DrawingFile& drawing,
                   PackageWriter& writer);
    /// Writes the records of a chunk's entities into the layer file. Call it for each chunk in order, before
    /// the headers of its entities.
    void WriteRecords(drawing::Drawing& chunk);
    /// Adds the value of an entity to the gazetteer, unless the entity is outside the tiles of a package.
    void AddToSearch(const drawing::Entity& entity);

    bool IsClassifiedMode() const { return isClassifiedMode_; }
    bool IsHidden(const std::string& layer) { return LookOf(layer).isHidden; }
    /// Number of layers so far.
    std::size_t LayersMet() const { return looks_.size(); }
    /// The header of an entity of the drawing.
    FeatureHeader Of(const drawing::Entity& entity, StyleCell cell);
    /// The header of a part of a symbol, or of a converted curve. It has only a layer.
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
