// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/PerAttributeSet.h"
#include "background/builder/Annotation.h"
#include "background/builder/BuildSettings.h"
#include "background/builder/FeatureHeaders.h"
#include "background/builder/Outline.h"
#include "background/builder/Symbols.h"
#include "background/package/PackageWriter.h"
#include "background/styling/AnnotationText.h"
#include "config/Run.h"
#include "drawing/DrawingFile.h"
#include "util/Placement.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vexlator::background {

using util::Placement;

/// Writes the entities of a drawing to a package. First come the entities that are written unchanged, in
/// order. Then come the parts of symbols and curves among them, again in order. Then come the parts of nested
/// symbols, one depth after the other. This is the order of a queue to which unfolded parts are appended. But
/// instead of keeping the queue, which would be larger than the drawing, each depth starts at the drawing's
/// symbols again.
class EntityWalk {
public:
    EntityWalk(config::Run& run, const BuildSettings& settings, drawing::DrawingFile& drawing,
               FeatureHeaders& headers, PackageWriter& writer, ui::FormView& view);
    /// Returns the number of entities, without parts.
    /// @throws platform::ReadError for a damaged drawing, platform::WriteError
    std::uint64_t Run();

private:
    /// An entity of the drawing, or a part of a symbol in it.
    struct Item {
        drawing::Entity entity;
        const std::string* layer;       ///< a part is on the layer of its insert
        const drawing::Drawing* owner;  ///< contains the blocks of its name
        int depth = 0;                  ///< number of symbols around it
        Placement placement = {};       ///< placement of the innermost of them
        bool IsPart() const { return depth > 0; }
        const Placement* PlacementOrNone() const { return IsPart() ? &placement : nullptr; }
    };
    /// The positions of the attributes about rings.
    struct RingColumns {
        std::optional<std::size_t> part, hole;
    };
    struct RingMarks {
        std::optional<int> part;  ///< part of a multi-part feature
        bool isHole = false;
    };

    /// Every entity of the chunk, on the layer named by the style's attribute.
    template <typename Visit>
    void ForEachItem(drawing::Drawing& chunk, Visit visit);
    void SetTileSizeByDensity();
    bool IsUnfolded(drawing::Kind kind) const;
    void Take(const Item& item);
    template <typename Visit>
    void ForEachPart(const Item& insert, drawing::Drawing& content, Visit visit);
    void Descend(const Item& item, int depth);
    void Unfold(const Item& item);
    void UnfoldInsert(const Item& item);
    void WriteCurve(const Item& item);
    void WritePolyline(const Item& item);
    void WriteLine(const Item& item);
    void WritePoint(const Item& item);
    void WriteText(const Item& item);
    void WriteOutline(const RingMarks& marks);
    void SetHeader(const Item& item, StyleCell cell);
    RingMarks MarksOf(const Item& item);
    bool IsAnnotated(const Item& item) const;
    void Annotate(const Item& item, AnnotationPlace place);
    void ReportSkipped() const;

    config::Run& run_;
    const BuildSettings& settings_;
    drawing::DrawingFile& drawing_;
    FeatureHeaders& headers_;
    PackageWriter& writer_;
    ui::FormView& view_;
    Symbols symbols_;
    AnnotationText annotation_;
    std::optional<double> annotationHeight_;
    PerAttributeSet<RingColumns> ringColumns_;
    Outline outline_;
    bool hasDeeper_ = false;  ///< unfolded symbols contained symbols or curves
    std::uint64_t descents_ = 0;
    std::uint64_t withoutParts_ = 0, tooDeep_ = 0;
    std::vector<bool> refused_;  ///< by number in the drawing; ends with the last changed one
    std::size_t number_ = 0;     ///< number of the entity, in this pass over the drawing
};

}  // namespace vexlator::background
