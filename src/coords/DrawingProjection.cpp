// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/DrawingProjection.h"

#include "coords/CoordinateOperation.h"
#include "coords/TransformationSetting.h"
#include "platform/Errors.h"

#include <string_view>

namespace vexlator::coords {

namespace {

std::string EsriText(const std::string& definition) {
    ProjContext context({});
    ProjObject system = WithoutShift(context, PlaneSystem(context, definition));
    const char* const oneLine[] = {"MULTILINE=NO", nullptr};
    const char* text = system ? proj_as_wkt(context.Get(), system.get(), PJ_WKT1_ESRI, oneLine) : nullptr;
    return text ? text : "";
}

/// The system's own code, or that of a system of the library that differs in its name only; "" without one.
std::string EpsgCodeOf(ProjContext& context, const ProjObject& system) {
    constexpr int otherName = 90;  // what the library is at least sure of then
    const char* authority = proj_get_id_auth_name(system.get(), 0);
    if (authority && std::string_view(authority) == "EPSG") return proj_get_id_code(system.get(), 0);
    int* confidences = nullptr;
    ProjList found(proj_identify(context.Get(), system.get(), "EPSG", nullptr, &confidences));
    std::string code;
    if (found && proj_list_get_count(found.get()) > 0 && confidences[0] >= otherName) {
        ProjObject same(proj_list_get(context.Get(), found.get(), 0));
        if (const char* text = same ? proj_get_id_code(same.get(), 0) : nullptr) code = text;
    }
    proj_int_list_destroy(confidences);
    return code;
}

bool PointsEastFirst(ProjContext& context, const ProjObject& system) {
    ProjObject axes(proj_crs_get_coordinate_system(context.Get(), system.get()));
    const char* direction = nullptr;
    return axes &&
           proj_cs_get_axis_info(context.Get(), axes.get(), 0, nullptr, nullptr, &direction, nullptr, nullptr,
                                 nullptr, nullptr) != 0 &&
           std::string_view(direction) == "east";
}

std::string SrsNameOf(const std::string& definition) {
    ProjContext context({});
    ProjObject system = WithoutShift(context, PlaneSystem(context, definition));
    std::string code = system ? EpsgCodeOf(context, system) : "";
    if (code.empty()) return "";
    ProjObject named = context.Create("EPSG:" + code);
    bool eastFirst = named && PointsEastFirst(context, named);
    return (eastFirst ? "urn:ogc:def:crs:EPSG::" : "http://www.opengis.net/gml/srs/epsg.xml#") + code;
}

}  // namespace

std::optional<std::string> DrawingProjection(const config::Run& run) {
    TransformationSetting setting = ReadTransformationSetting(run);
    if (!setting.isSet) return std::nullopt;
    // A drawing in an unknown system must not claim to be in the national grid.
    if (setting.kind == TransformationSetting::Kind::CorrectionGrid) return "";
    try {
        return EsriText(setting.DrawingSystem());
    } catch (const platform::ReadError&) {
        return "";
    }
}

std::string DrawingSrsName(const config::Run& run) {
    TransformationSetting setting = ReadTransformationSetting(run);
    using enum TransformationSetting::Kind;
    if (setting.kind == Degrees) return "urn:ogc:def:crs:OGC:1.3:CRS84";
    if (setting.kind == CorrectionGrid) return setting.isSet ? "" : SrsNameOf("EPSG:27700");
    try {
        return SrsNameOf(setting.DrawingSystem());
    } catch (const platform::ReadError&) {
        return "";
    }
}

std::string DegreesProjection() {
    return EsriText("EPSG:4326");
}

}  // namespace vexlator::coords
