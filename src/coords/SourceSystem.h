// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "util/Geometry.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace vexlator::coords {

/// The coordinate system named by a source, such as a shapefile's .PRJ, compared with the one that the
/// settings assume. The drawings' own system is that of [GPS] TRANSFORMATION, or without a definition the
/// British National Grid. Systems are equal if the projection library finds them equivalent, whatever their
/// names and axis order. Height systems are ignored.
class SourceSystem {
public:
    /// The settings' assumption about a source's coordinates.
    enum class Assumed {
        Grid,        ///< the drawings' system
        GridInFeet,  ///< the drawings' system, in feet
        Degrees      ///< longitude and latitude on WGS 84, or on ETRS89, which is equal to a metre
    };

    /// `definition`: any text of a definition file, or an srsName of GML.
    SourceSystem(config::Run& run, const std::string& definition);
    ~SourceSystem();

    /// False if the definition is not a coordinate system.
    bool IsKnown() const;
    /// Message for the user: how the system differs, or that it is unknown. "" if it is equal. "" also if the
    /// drawings' system has no definition to compare with, except for degrees, because the drawings are not
    /// in degrees then.
    std::string Difference(Assumed assumed) const;

    /// Whether frmLatLng has to convert the source's degrees to the drawings: with OSTN02.INT or OSTN97.INT,
    /// which the projection library would not find, or with an operation.
    bool SuitsLatLng() const;

    /// Prepares the conversion to the drawings' system. Reports a missing grid, with `sourceName` before it.
    /// Returns why there is no conversion; "" if there is one.
    std::string PrepareConversion(std::string_view sourceName);
    /// In place. Results in a grid have three decimals. Points that cannot be converted keep their values.
    /// Returns the number of these points.
    std::size_t ToDrawing(std::span<util::PlanePoint> points);

private:
    class Conversion;

    config::Run& run_;
    std::unique_ptr<Conversion> conversion_;
};

}  // namespace vexlator::coords
