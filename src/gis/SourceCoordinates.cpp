// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gis/SourceCoordinates.h"

#include "gis/Ogr.h"
#include "gis/TargetSystem.h"
#include "platform/Errors.h"

#include <cpl_conv.h>

namespace vexlator::gis {

namespace {

/// "EPSG:27700" or well-known text; "" for a system of no place on the earth.
std::string DefinitionOf(OGRSpatialReferenceH system) {
    if (!system || OSRIsLocal(system)) return "";
    const char* name = OSRGetName(system);
    if (name && std::string_view(name).starts_with("Undefined")) return "";
    const char* authority = OSRGetAuthorityName(system, nullptr);
    const char* code = OSRGetAuthorityCode(system, nullptr);
    if (authority && code) return std::string(authority) + ":" + code;
    char* text = nullptr;
    const char* const options[] = {"FORMAT=WKT2_2018", nullptr};
    OSRExportToWktEx(system, &text, options);
    std::string definition = text ? text : "";
    CPLFree(text);
    return definition;
}

}  // namespace

void SourceCoordinates::BeginLayer(OGRSpatialReferenceH system, const std::string& name) {
    kept_ = 0;
    layerSystem_ = system;
    name_ = name;
    rule_ = Rule::AsTheyStand;
    std::string definition = DefinitionOf(system);
    if (definition.empty()) return;
    if (!system_ || definition != definition_) {
        system_ = std::make_unique<coords::SourceSystem>(run_, definition);
        definition_ = std::move(definition);
    }
    std::string difference = system_->Difference(coords::SourceSystem::Assumed::Grid);
    if (!difference.empty()) run_.Ui().Report(name + ": " + difference + "; " + Choose(name));
}

/// Returns what is done, for the user.
std::string SourceCoordinates::Choose(const std::string& name) {
    constexpr const char* unchanged = "coordinates are taken as they stand";
    if (!system_->IsKnown()) return unchanged;
    if (system_->SuitsLatLng()) {
        if (!converter_) converter_ = std::make_unique<coords::frmLatLng>(run_);
        rule_ = Rule::Degrees;
    } else {
        std::string reason = system_->PrepareConversion(name);
        if (!reason.empty()) return unchanged + (", because " + reason);
        rule_ = Rule::System;
    }
    return "converted";
}

OGREnvelope SourceCoordinates::InSource(const config::ImportExtentBox& box) const {
    OGREnvelope result;
    result.MinX = box.minX;
    result.MinY = box.minY;
    result.MaxX = box.maxX;
    result.MaxY = box.maxY;
    if (!AreConverted()) return result;
    constexpr int pointsOfEdge = 21;
    SpatialReference drawing = TargetSystem(run_, {}, false), source(OSRClone(layerSystem_));
    OSRSetAxisMappingStrategy(source.get(), OAMS_TRADITIONAL_GIS_ORDER);
    Transformation way(drawing ? OCTNewCoordinateTransformation(drawing.get(), source.get()) : nullptr);
    if (!way || !OCTTransformBounds(way.get(), box.minX, box.minY, box.maxX, box.maxY, &result.MinX,
                                    &result.MinY, &result.MaxX, &result.MaxY, pointsOfEdge))
        throw platform::ReadError(name_, "", "the extent cannot be converted to its coordinate system");
    return result;
}

void SourceCoordinates::Convert(std::span<util::PlanePoint> points) {
    if (rule_ == Rule::Degrees) kept_ += converter_->LatLngToGrid(points);
    if (rule_ == Rule::System) kept_ += system_->ToDrawing(points);
}

}  // namespace vexlator::gis
