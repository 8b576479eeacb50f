// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/DrawingProjection.h"

#include "coords/CoordinateOperation.h"
#include "coords/TransformationSetting.h"
#include "platform/Errors.h"

namespace vexlator::coords {

namespace {

std::string EsriText(const std::string& definition) {
    ProjContext context({});
    ProjObject system = WithoutShift(context, PlaneSystem(context, definition));
    const char* const oneLine[] = {"MULTILINE=NO", nullptr};
    const char* text = system ? proj_as_wkt(context.Get(), system.get(), PJ_WKT1_ESRI, oneLine) : nullptr;
    return text ? text : "";
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

std::string DegreesProjection() {
    return EsriText("EPSG:4326");
}

}  // namespace vexlator::coords
