// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/ConversionReport.h"
#include "config/Run.h"
#include "coords/frmLatLng.h"
#include "export/LayerLoop.h"
#include "export/RingMarks.h"
#include "gis/EntityShape.h"
#include "gis/GisFormat.h"
#include "gis/Ogr.h"
#include "gis/TargetColumns.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <gdal.h>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace vexlator::gis {

/// Writes the entities of a layer as features: first Look() at all of them, then Create(), then Write().
/// Rings that are marked as parts of a feature are joined again.
class TargetLayer {
public:
    /// `converter`: to degrees; null if coordinates stay as they are.
    TargetLayer(config::Run& run, const GisFormat& format, const exporter::ExportLayer& layer,
                const drawing::Drawing& drawing, coords::frmLatLng* converter);

    /// Takes the entities of one kind only. Those without a geometry are among the places.
    void TakeOnly(ShapeKind kind) { only_ = kind; }
    TargetColumns& Columns() { return columns_; }
    void Look(const exporter::LayerPart& part);
    /// The bounds of its coordinates, once it has looked at all entities.
    const std::optional<OGREnvelope>& Bounds() const { return bounds_; }
    /// Whether features without a place will come.
    bool HasNothing() const { return hasNothing_; }
    /// Whether features will come at all.
    bool HasFeatures() const { return hasPlaces_ || hasLines_ || hasAreas_ || hasNothing_; }
    /// Whether its features can go into a layer for such geometries.
    bool Fits(OGRwkbGeometryType type) const;
    /// Makes the layer in a data set. @throws platform::WriteError with the name `file`
    void Create(GDALDatasetH dataset, OGRSpatialReferenceH system, const std::string& name,
                const std::string& file, std::span<const std::string> options);
    /// Adds to a layer that is there, whose coordinates may be in another system.
    /// @throws platform::WriteError with the name `file`
    void AddTo(OGRLayerH layer, OGRSpatialReferenceH system, const std::string& file);
    /// @throws platform::WriteError
    void Write(const exporter::LayerPart& part);
    /// Returns the number of features. @throws platform::WriteError
    std::uint64_t Finish(config::ConversionReport& report);

    std::uint64_t WithPlace() const { return withPlace_; }

private:
    /// An entity of the current batch.
    struct Item {
        drawing::EntityView entity;
        ShapeKind kind;
        std::size_t points;
    };

    OGRwkbGeometryType GeometryType() const;
    bool Takes(ShapeKind kind) const;
    void Begin(const std::string& file);
    void Gather(const drawing::EntityView& entity);
    void ConvertBatch();
    void WriteBatch();
    void WriteItem(const Item& item, std::size_t begin);
    void AddRing(const Item& item, std::size_t begin);
    void SetPoints(OGRGeometryH geometry, std::size_t begin, std::size_t count) const;
    void BeginFeature(const drawing::EntityView& entity);
    void SetStyle(const drawing::EntityView& entity, ShapeKind kind);
    void EndFeature();

    config::Run& run_;
    const GisFormat& format_;
    const exporter::ExportLayer& layer_;
    coords::frmLatLng* converter_;
    TargetColumns columns_;
    std::string file_;
    std::optional<ShapeKind> only_;
    Transformation transformation_;  ///< to the system of a layer that was there

    // What it has seen.
    bool hasPlaces_ = false, hasLines_ = false, hasAreas_ = false, hasNothing_ = false, hasTexts_ = false;
    bool hasHeights_ = false, hasSurfaces_ = false;
    std::optional<OGREnvelope> bounds_;

    OGRLayerH target_ = nullptr;
    OGRwkbGeometryType targetType_ = wkbUnknown;  ///< that all geometries of a shared layer must have
    Feature feature_;                             ///< the same object for all features
    bool isPending_ = false;  ///< the feature is not written yet, because rings may follow
    Geometry geometry_;       ///< of the pending feature
    exporter::RingSequence rings_;

    const drawing::Style* lastStyle_ = nullptr;  ///< that styleText_ is of
    ShapeKind lastKind_ = ShapeKind::Nothing;
    bool lastFilled_ = false;
    std::string styleText_;

    std::vector<Item> items_;
    std::vector<util::PlanePoint> points_;
    std::vector<double> heights_;
    std::array<std::uint64_t, static_cast<std::size_t>(drawing::Kind::Other) + 1> leftOut_{};
    std::uint64_t features_ = 0, withPlace_ = 0, unplaced_ = 0;
};

}  // namespace vexlator::gis
