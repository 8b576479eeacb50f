// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "coords/SourceSystem.h"
#include "coords/frmLatLng.h"
#include "util/Geometry.h"

#include <cstdint>
#include <memory>
#include <ogr_api.h>
#include <span>
#include <string>

namespace vexlator::gis {

/// Converts a source's coordinates to the drawings' system, when the source declares another one.
class SourceCoordinates {
public:
    explicit SourceCoordinates(config::Run& run) : run_(run) {}

    /// Prepares a layer with that system, which may be null; `name` is for the lines that the user gets.
    void BeginLayer(OGRSpatialReferenceH system, const std::string& name);
    bool AreConverted() const { return rule_ != Rule::AsTheyStand; }
    void Convert(std::span<util::PlanePoint> points);
    /// The box in the layer's system that holds an area of the drawing. @throws platform::ReadError when
    /// there is none
    OGREnvelope InSource(const config::ImportExtentBox& box) const;
    /// Points of the layer that could not be converted and keep their values.
    std::uint64_t Kept() const { return kept_; }

private:
    enum class Rule { AsTheyStand, Degrees, System };
    std::string Choose(const std::string& name);

    config::Run& run_;
    Rule rule_ = Rule::AsTheyStand;
    OGRSpatialReferenceH layerSystem_ = nullptr;
    std::string name_;
    std::string definition_;
    std::unique_ptr<coords::SourceSystem> system_;  ///< that of definition_
    std::unique_ptr<coords::frmLatLng> converter_;
    std::uint64_t kept_ = 0;
};

}  // namespace vexlator::gis
