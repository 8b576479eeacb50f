// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/builder/EntityWalk.h"

#include "background/ShowCount.h"
#include "background/styling/DrawingTools.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vexlator::background {

namespace {

using drawing::Kind;
using util::PlanePoint;

constexpr double leastTileSize = 300;
/// Limits, because a symbol that contains itself would unfold forever, and a few levels of a thousand symbols
/// for years.
constexpr int deepestSymbol = 16;
constexpr std::uint64_t mostDescents = 1'000'000'000;

/// The only text alignment of drawings with a position code on the device.
constexpr std::int32_t centredAlignment = 106;
constexpr int centredPosition = 9, noPosition = -1;

PlanePoint Plane(const drawing::Point& point) {
    return {point.x, point.y};
}

std::optional<double> PositiveOnly(std::optional<double> height) {
    return height && *height > 0 ? height : std::nullopt;
}

}  // namespace

EntityWalk::EntityWalk(config::Run& run, const BuildSettings& settings, drawing::DrawingFile& drawing,
                       FeatureHeaders& headers, PackageWriter& writer, ui::FormView& view)
    : run_(run),
      settings_(settings),
      drawing_(drawing),
      headers_(headers),
      writer_(writer),
      view_(view),
      symbols_(drawing.Current(), run.Ui()),
      annotation_(settings.style.annotationFields),
      annotationHeight_(PositiveOnly(settings.style.FixedAnnotationHeight())) {}

std::uint64_t EntityWalk::Run() {
    if (!headers_.IsClassifiedMode()) SetTileSizeByDensity();
    std::uint64_t taken = 0;
    drawing_.ForEachChunk([&](drawing::Drawing& chunk) {
        headers_.WriteRecords(chunk);
        ForEachItem(chunk, [&](const Item& item) {
            view_.Progress(++taken, drawing_.EntityCount());
            if (IsUnfolded(item.entity.kindCode()))
                hasDeeper_ = true;
            else
                Take(item);
            if (!writer_.IsCounted()) headers_.AddToSearch(item.entity);
        });
    });
    for (int depth = 0; depth <= deepestSymbol && hasDeeper_; ++depth) {
        hasDeeper_ = false;
        number_ = 0;
        drawing_.ForEachChunk([&](drawing::Drawing& chunk) {
            ForEachItem(chunk, [&](const Item& item) {
                if (IsUnfolded(item.entity.kindCode())) Descend(item, depth);
            });
        });
    }
    ReportSkipped();
    return taken;
}

template <typename Visit>
void EntityWalk::ForEachItem(drawing::Drawing& chunk, Visit visit) {
    if (!settings_.style.layerOnField.empty()) RelayerByAttribute(settings_.style.layerOnField, chunk);
    chunk.forEach([&](drawing::Entity entity) {
        writer_.BeginEntity(number_ < refused_.size() && refused_[number_]);
        visit(Item{entity, &entity.layerName(), &chunk});
        if (writer_.IsCounted()) {
            refused_.resize(std::max(refused_.size(), number_ + 1));
            refused_[number_] = true;
        }
        ++number_;
    });
}

/// Chosen so that a tile holds about a hundred entities if they are spread evenly.
void EntityWalk::SetTileSizeByDensity() {
    if (drawing_.EntityCount() == 0) return;
    drawing::Box box = drawing_.Extents();
    double side = std::max(box.maxX - box.minX, box.maxY - box.minY);
    double tiles = std::max(static_cast<double>(drawing_.EntityCount()) / 100, 1.0);
    double size = std::max(std::floor(side / std::sqrt(tiles)), leastTileSize);
    if (!std::isfinite(size)) return;
    writer_.SetDefaultTileSize(size);
    run_.Ui().Beep();
}

bool EntityWalk::IsUnfolded(Kind kind) const {
    switch (kind) {
        case Kind::Insert:
            return !settings_.keepSymbols;
        case Kind::Circle:
        case Kind::Arc:
        case Kind::Other:
            return true;
        default:
            return false;
    }
}

void EntityWalk::Take(const Item& item) {
    if (headers_.IsHidden(*item.layer)) return;
    switch (item.entity.kindCode()) {
        case Kind::Polyline:
            return WritePolyline(item);
        case Kind::Line:
            return WriteLine(item);
        case Kind::Text:
            return WriteText(item);
        default:
            return WritePoint(item);
    }
}

template <typename Visit>
void EntityWalk::ForEachPart(const Item& insert, drawing::Drawing& content, Visit visit) {
    Placement placement = PlacementOf(insert.entity, insert.placement);
    content.forEach([&](drawing::Entity entity) {
        visit(Item{entity, insert.layer, &content, insert.depth + 1, placement});
    });
}

/// Unfolds the contents of this symbol at the given depth, counted from the drawing.
void EntityWalk::Descend(const Item& item, int depth) {
    if (headers_.IsHidden(*item.layer)) return;
    if (++descents_ > mostDescents) {
        ++tooDeep_;
        return;
    }
    if (item.depth == depth) return Unfold(item);
    if (item.entity.kindCode() != Kind::Insert) return;
    drawing::Drawing* content = symbols_.ContentOf(item.entity.blockName(), *item.owner);
    if (content == nullptr) return;
    ForEachPart(item, *content, [&](const Item& part) {
        if (IsUnfolded(part.entity.kindCode())) Descend(part, depth);
    });
}

void EntityWalk::Unfold(const Item& item) {
    switch (item.entity.kindCode()) {
        case Kind::Circle:
        case Kind::Arc:
            return WriteCurve(item);
        case Kind::Insert:
            return UnfoldInsert(item);
        default:
            ++withoutParts_;
    }
}

void EntityWalk::UnfoldInsert(const Item& item) {
    drawing::Drawing* content = symbols_.ContentOf(item.entity.blockName(), *item.owner);
    if (content == nullptr || content->entityCount() == 0) {
        ++withoutParts_;
        return;
    }
    ForEachPart(item, *content, [&](const Item& part) {
        if (!IsUnfolded(part.entity.kindCode())) return Take(part);
        hasDeeper_ = true;
        if (part.depth > deepestSymbol) ++tooDeep_;
    });
}

void EntityWalk::SetHeader(const Item& item, StyleCell cell) {
    writer_.Feature() = item.IsPart() ? headers_.OfPart(*item.layer, cell) : headers_.Of(item.entity, cell);
}

EntityWalk::RingMarks EntityWalk::MarksOf(const Item& item) {
    if (item.IsPart()) return {};
    const RingColumns& columns = ringColumns_.Of(item.entity, [](const drawing::XProperties& attributes) {
        RingColumns found;
        for (std::size_t i = attributes.count(); i-- > 0;) {
            if (attributes.name(i) == "MPOLY") found.part = i;
            if (attributes.name(i) == "ISHOLE") found.hole = i;
        }
        return found;
    });
    RingMarks marks{.part = std::nullopt, .isHole = columns.hole.has_value()};
    if (!columns.part) return marks;
    drawing::XProperty part = item.entity.xproperties().item(*columns.part);
    if (!util::Trim(part.value()).empty())
        marks.part = static_cast<int>(std::clamp<std::int64_t>(util::IntegerOf(part.value()), 0, 255));
    return marks;
}

void EntityWalk::WriteOutline(const RingMarks& marks) {
    bool isWritten = writer_.WriteLineElement(outline_.Points(), marks.isHole).has_value();
    bool wantsAreas = settings_.fullPolygons || headers_.IsClassifiedMode();
    if (isWritten && wantsAreas && outline_.IsClosed())
        writer_.WriteAreaRing(PackageWriter::AreaRing::StartsArea, marks.part);
}

void EntityWalk::WritePolyline(const Item& item) {
    SetHeader(item, CellOf(item.entity));
    outline_.TakePolyline(item.entity, item.PlacementOrNone());
    WriteOutline(MarksOf(item));
    std::span<const PlanePoint> points = outline_.Points();
    if (!points.empty() && IsAnnotated(item))
        Annotate(item, outline_.IsClosed() ? PlaceInOutline(points) : PlaceAlongLine(points));
}

/// The only attribute that the polyline takes from its circle or arc is the layer.
void EntityWalk::WriteCurve(const Item& item) {
    bool isCircle = item.entity.kindCode() == Kind::Circle;
    writer_.Feature() = headers_.OfPart(*item.layer, isCircle ? StyleCell::Areas : StyleCell::Lines);
    outline_.TakeCurve(item.entity, item.PlacementOrNone());
    WriteOutline({});
}

void EntityWalk::WriteLine(const Item& item) {
    SetHeader(item, StyleCell::Lines);
    outline_.TakeLine(item.entity, item.PlacementOrNone());
    writer_.WriteLineElement(outline_.Points());
}

void EntityWalk::WritePoint(const Item& item) {
    SetHeader(item, StyleCell::Points);
    PlanePoint at = item.placement(Plane(item.entity.position()));
    writer_.WriteLineElement(std::array{at});
    if (!IsAnnotated(item)) return;
    bool isSymbol = item.entity.kindCode() == Kind::Insert;
    Annotate(item, {at, isSymbol ? symbols_.SizeOf(item.entity) * annotationPerSymbol : 1});
}

void EntityWalk::WriteText(const Item& item) {
    SetHeader(item, StyleCell::Points);
    bool isCentred = item.entity.shape().alignment == centredAlignment;
    writer_.WriteTextElement({.insertion = item.placement(Plane(item.entity.insertionPoint())),
                              .height = item.entity.height() * item.placement.ScaleY(),
                              .angle = item.entity.rotation() + item.placement.Rotation(),
                              .positionCode = isCentred ? centredPosition : noPosition},
                             item.entity.text());
}

/// Ask this first, because finding the position costs a look at every vertex.
bool EntityWalk::IsAnnotated(const Item& item) const {
    return !item.IsPart() && !settings_.style.annotationFields.empty();
}

void EntityWalk::Annotate(const Item& item, AnnotationPlace place) {
    if (annotationHeight_) place.height = *annotationHeight_;
    WriteAnnotation(writer_, place, annotation_.BuildAnnotationText(item.entity));
}

void EntityWalk::ReportSkipped() const {
    ShowCount(run_.Ui(), withoutParts_, "Empty symbols and entities, not in the package");
    ShowCount(run_.Ui(), tooDeep_, "Symbols nested too deeply, not in the package");
}

}  // namespace vexlator::background
