// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "gis/FeatureStyle.h"

#include <cstddef>
#include <cstdint>
#include <ogr_api.h>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vexlator::gis {

/// Features of a CAD drawing become entities of a drawing, or of one of its blocks.
class CadEntities {
public:
    enum class Place { Ground, Symbol };

    CadEntities(drawing::Drawing& drawing, OGRFeatureDefnH definition, Place place);

    /// Colours of inserts by their handles, which GDAL does not tell; it must outlive this.
    void UseColours(const std::unordered_map<std::string, drawing::Colour>& colours) { colours_ = &colours; }
    /// The layer of features that name none.
    void UseLayer(std::string_view name) { usualLayer_ = name; }
    /// Whether the feature is a hatch of the last entities, which become filled: it adds nothing then.
    bool FillsLast(OGRFeatureH feature);
    /// False if the feature adds nothing: it has no geometry, or defines an attribute of a block.
    bool Add(OGRFeatureH feature);
    /// The block that the feature shows; "" if it is no insert.
    std::string InsertedBlock(OGRFeatureH feature) const;
    /// The block that the feature is a part of; "" for none.
    std::string OwnerBlock(OGRFeatureH feature) const { return TextOf(feature, fields_.block); }

private:
    struct Fields {
        int layer, subClasses, lineType, blockName, scale, angle, normal, attributes, block, tag, raw;
        int level, handle, extended;
    };
    using Ring = std::vector<util::PlanePoint>;

    std::string TextOf(OGRFeatureH feature, int field) const;
    const Look& CurrentLook(OGRFeatureH feature);
    void SelectLayer(OGRFeatureH feature, bool isHidden);
    drawing::Style StyleOf(OGRFeatureH feature, const Look& look) const;
    drawing::Colour ColourOf(std::string_view text) const;
    drawing::Colour InsertColour(OGRFeatureH feature);
    void ReadAttributes(OGRFeatureH feature);
    void AddBlockAttributes(OGRFeatureH feature);
    void AddExtendedData(OGRFeatureH feature);
    void GiveAttributes(std::uint64_t surface, bool isHole);
    bool AddGeometry(OGRGeometryH geometry, bool isFilled);
    void AddInsert(OGRFeatureH feature, OGRGeometryH at, const std::string& block);
    void AddText(OGRGeometryH at, const Label& label);
    void AddLine(OGRGeometryH geometry);
    void AddRings(OGRGeometryH polygon, std::uint64_t surface, bool isFilled);
    void AddVertices(OGRGeometryH geometry, int count);
    static void Collect(OGRGeometryH geometry, std::vector<OGRGeometryH>& parts);

    drawing::Drawing& drawing_;
    Fields fields_{};
    Place place_;
    std::string usualLayer_ = "0";
    const std::unordered_map<std::string, drawing::Colour>* colours_ = nullptr;
    std::vector<std::pair<std::string, std::string>> attributes_;  ///< of the current feature
    std::vector<util::PlanePoint> points_;                         ///< of the current line
    std::vector<double> heights_;
    std::string lastStyle_;  ///< text of the last look
    Look lastLook_;
};

}  // namespace vexlator::gis
