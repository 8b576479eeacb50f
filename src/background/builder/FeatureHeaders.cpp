// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/builder/FeatureHeaders.h"

#include <optional>

namespace vexlator::background {

namespace {

bool FirstPolylineIsClassified(Classifier& classifier, drawing::DrawingFile& drawing) {
    FeatureHeader header;
    auto polyline = drawing.FindFirst(
        [](const drawing::Entity& entity) { return entity.kindCode() == drawing::Kind::Polyline; });
    return polyline && classifier.ClassifyEntity(*polyline, header);
}

const ClassBytes& BytesOf(const LayerStyle& style, StyleCell cell) {
    switch (cell) {
        case StyleCell::Points:
            return style.points;
        case StyleCell::Lines:
            return style.lines;
        default:
            return style.areas;
    }
}

}  // namespace

DrawingKind KindOf(drawing::DrawingFile& drawing) {
    auto first = drawing.FindFirst([](const drawing::Entity&) { return true; });
    if (!first) return DrawingKind::Empty;
    if (first->xproperties().count() == 0) return DrawingKind::Plain;
    return IsClassifiedDrawing(*first) ? DrawingKind::Classified : DrawingKind::Attributed;
}

StyleCell CellOf(const drawing::Entity& entity) {
    switch (entity.kindCode()) {
        case drawing::Kind::Polyline:
            return entity.isClosed() ? StyleCell::Areas : StyleCell::Lines;
        case drawing::Kind::Line:
            return StyleCell::Lines;
        default:
            return StyleCell::Points;
    }
}

FeatureHeaders::FeatureHeaders(config::Run& run, const BuildSettings& settings, drawing::DrawingFile& drawing,
                               PackageWriter& writer)
    : kind_(KindOf(drawing)),
      classifier_(run),
      records_(settings.attributes, settings.style.searchOnField, writer),
      styles_(settings.style.rows, settings.mobileStyles),
      isClassifiedMode_(settings.style.rows.empty() && FirstPolylineIsClassified(classifier_, drawing)) {
    if (kind_ == DrawingKind::Plain) WriteLayers(drawing.Current(), writer);
}

void FeatureHeaders::WriteRecords(drawing::Drawing& chunk) {
    if (kind_ == DrawingKind::Attributed) records_.Write(chunk);
}

void FeatureHeaders::AddToSearch(const drawing::Entity& entity) {
    if (kind_ == DrawingKind::Attributed) records_.AddToSearch(entity);
}

void FeatureHeaders::WriteLayers(const drawing::Drawing& drawing, PackageWriter& writer) {
    for (const drawing::Layer& layer : drawing.layers())
        layerNumbers_[&layer.name] = writer.Layers().AddLayer(layer.name);
}

const FeatureHeaders::LayerLook& FeatureHeaders::LookOf(const std::string& layer) {
    if (lastLayer_ == &layer) return lastLook_;
    auto [known, isNew] = looks_.try_emplace(&layer);
    if (isNew) {
        auto number = layerNumbers_.find(&layer);
        const LayerStyle* style = styles_.StyleFor(layer);
        known->second = {number == layerNumbers_.end() ? 0 : number->second, style, style && style->hidden};
    }
    lastLayer_ = &layer;
    return lastLook_ = known->second;
}

void FeatureHeaders::ApplyStyle(const LayerLook& look, StyleCell cell, FeatureHeader& header) const {
    if (look.style == nullptr) return;
    ClassBytes bytes = BytesOf(*look.style, cell);
    header.classB = bytes.b;
    header.classC = bytes.c;
}

FeatureHeader FeatureHeaders::Of(const drawing::Entity& entity, StyleCell cell) {
    FeatureHeader header;
    if (isClassifiedMode_ || kind_ == DrawingKind::Classified) classifier_.ClassifyEntity(entity, header);
    if (isClassifiedMode_) return header;
    // In a styled drawing the style decides the look, but features keep their identifiers.
    header.classA = FeatureHeader{}.classA;
    header.classB = header.classC = 0;
    const LayerLook& look = LookOf(entity.layerName());
    if (kind_ == DrawingKind::Plain) header.keyLow = look.number;
    if (kind_ == DrawingKind::Attributed) header.keyLow = records_.NumberOf(entity);
    ApplyStyle(look, cell, header);
    return header;
}

FeatureHeader FeatureHeaders::OfPart(const std::string& layer, StyleCell cell) {
    FeatureHeader header;
    if (isClassifiedMode_) return header;
    const LayerLook& look = LookOf(layer);
    if (kind_ == DrawingKind::Plain) header.keyLow = look.number;
    ApplyStyle(look, cell, header);
    return header;
}

}  // namespace vexlator::background
