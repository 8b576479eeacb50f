// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/OwnDegrees.h"

#include "coords/CoordinateOperation.h"

#include <cmath>

namespace vexlator::coords {

struct OwnDegrees::System {
    ProjContext context{{}};
    ProjObject operation;  ///< to longitude and latitude
    bool isProjected = true;
    std::string text;
};

OwnDegrees::OwnDegrees(const std::string& definition) : system_(std::make_unique<System>()) {
    PJ_CONTEXT* context = system_->context.Get();
    ProjObject plane = WithoutShift(system_->context, PlaneSystem(system_->context, definition));
    if (!plane) return;
    PJ_TYPE type = proj_get_type(plane.get());
    system_->isProjected = type != PJ_TYPE_GEOGRAPHIC_2D_CRS && type != PJ_TYPE_GEOGRAPHIC_3D_CRS;
    ProjObject degrees(proj_crs_get_geodetic_crs(context, plane.get()));
    if (!degrees) return;
    ProjObject operation(
        proj_create_crs_to_crs_from_pj(context, plane.get(), degrees.get(), nullptr, nullptr));
    if (!operation) return;
    system_->operation.reset(proj_normalize_for_visualization(context, operation.get()));
    const char* const oneLine[] = {"MULTILINE=NO", nullptr};
    const char* text = proj_as_wkt(context, plane.get(), PJ_WKT1_ESRI, oneLine);
    system_->text = text ? text : "";
}

OwnDegrees::~OwnDegrees() = default;

bool OwnDegrees::IsKnown() const {
    return system_->operation && !system_->text.empty();
}
bool OwnDegrees::IsProjected() const {
    return system_->isProjected;
}
const std::string& OwnDegrees::Text() const {
    return system_->text;
}

std::optional<OwnDegrees::Place> OwnDegrees::Of(util::PlanePoint position) {
    if (!system_->operation) return std::nullopt;
    PJ_COORD at =
        proj_trans(system_->operation.get(), PJ_FWD, proj_coord(position.x, position.y, 0, HUGE_VAL));
    if (!std::isfinite(at.xy.x) || std::abs(at.xy.x) > 360 || !(std::abs(at.xy.y) <= 90)) return std::nullopt;
    return Place{at.xy.y, at.xy.x};
}

}  // namespace vexlator::coords
