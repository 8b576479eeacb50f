// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <ogr_api.h>
#include <ogr_srs_api.h>

/// Owners of GDAL's objects.
namespace vexlator::gis {

struct DestroyFeature {
    void operator()(OGRFeatureH feature) const { OGR_F_Destroy(feature); }
};
using Feature = std::unique_ptr<void, DestroyFeature>;

struct DestroyGeometry {
    void operator()(OGRGeometryH geometry) const { OGR_G_DestroyGeometry(geometry); }
};
using Geometry = std::unique_ptr<void, DestroyGeometry>;

struct DestroyTransformation {
    void operator()(OGRCoordinateTransformationH transformation) const {
        OCTDestroyCoordinateTransformation(transformation);
    }
};
using Transformation = std::unique_ptr<void, DestroyTransformation>;

struct ReleaseSystem {
    void operator()(OGRSpatialReferenceH system) const { OSRRelease(system); }
};
using SpatialReference = std::unique_ptr<void, ReleaseSystem>;

}  // namespace vexlator::gis
