// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <ogr_api.h>

/// Owners of GDAL's features and geometries.
namespace vexlator::gis {

struct DestroyFeature {
    void operator()(OGRFeatureH feature) const { OGR_F_Destroy(feature); }
};
using Feature = std::unique_ptr<void, DestroyFeature>;

struct DestroyGeometry {
    void operator()(OGRGeometryH geometry) const { OGR_G_DestroyGeometry(geometry); }
};
using Geometry = std::unique_ptr<void, DestroyGeometry>;

}  // namespace vexlator::gis
