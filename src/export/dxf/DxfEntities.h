// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/Drawing.h"
#include "export/RingMarks.h"
#include "export/dxf/CadSettings.h"
#include "formats/dxf/DxfWriter.h"

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vexlator::exporter {

/// What a feature code is in a CAD drawing.
struct CadLayer {
    std::string name;
    drawing::Colour colour = drawing::defaultColour;
    std::optional<CadAnnotation> annotation = {};
    std::string annotationLayer = {};
};

/// Entities of a drawing, or of one of its symbols, as those of a DXF file. A filled polyline is an outline,
/// and a hatch behind the last ring of its feature.
class DxfEntities {
public:
    enum class Place { Ground, Symbol };

    /// `layers`: by the number of the drawing's layers. Coordinates of a symbol stay as they are.
    DxfEntities(formats::DxfWriter& writer, const CadSettings& settings, std::vector<CadLayer> layers,
                Place place);

    void Add(const drawing::EntityView& entity);
    /// Call it after the last entity.
    void Finish() { WriteHatch(); }

    std::uint64_t LeftOut() const { return leftOut_; }      ///< entities of kinds that are none in a DXF file
    std::uint64_t FillsLost() const { return fillsLost_; }  ///< that the release does not have

private:
    using Pair = std::pair<std::string_view, std::string_view>;

    formats::DxfLook LookOf(const drawing::EntityView& entity) const;
    formats::DxfColour ColourOf(drawing::Colour colour, const CadLayer& layer) const;
    void ReadValues(const drawing::EntityView& entity);
    drawing::Point Moved(const drawing::Point& point) const;
    void AddPolyline(const drawing::EntityView& entity, const formats::DxfLook& look);
    void AddRing(const drawing::EntityView& entity, const formats::DxfLook& look);
    void AddInsert(const drawing::EntityView& entity, const formats::DxfLook& look);
    void AddText(const drawing::EntityView& entity, const formats::DxfLook& look);
    void AddRound(const drawing::EntityView& entity, const formats::DxfLook& look);
    void Annotate(const drawing::EntityView& entity, const CadLayer& layer);
    void WriteHatch();

    formats::DxfWriter& writer_;
    const CadSettings& settings_;
    std::vector<CadLayer> layers_;
    Place place_;
    double sine_ = 0, cosine_ = 1;
    std::vector<Pair> values_;              ///< of the current entity
    std::vector<util::PlanePoint> points_;  ///< of the current polyline
    RingSequence sequence_;
    std::vector<std::vector<util::PlanePoint>> rings_;  ///< of the current area
    formats::DxfLook hatchLook_;
    mutable std::unordered_map<drawing::Colour, formats::DxfColour> colours_;
    std::uint64_t leftOut_ = 0, fillsLost_ = 0;
};

}  // namespace vexlator::exporter
