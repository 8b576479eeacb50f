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

/// The coordinate system that a source names, as a shapefile's .PRJ does, beside the one that the settings
/// take its coordinates for. The drawings' own is what [GPS] TRANSFORMATION defines, without a definition the
/// British National Grid. Systems are the same when the projection library finds them equivalent, whatever
/// their names and the order of their axes; heights do not count.
class SourceSystem {
public:
    /// What the settings take a source's coordinates for.
    enum class Assumed {
        Grid,        ///< the drawings' system
        GridInFeet,  ///< the drawings' system, in feet
        Degrees      ///< longitude and latitude on WGS 84, or on ETRS89, which is the same to a metre
    };

    /// `definition`: any that a definition file may hold, or an srsName of GML.
    SourceSystem(config::Run& run, const std::string& definition);
    ~SourceSystem();

    /// False when the definition means no coordinate system.
    bool IsKnown() const;
    /// For people: how it differs, or that it is not known. "" when it does not, or when the drawings' system
    /// has no definition to compare with, but for degrees, which drawings are not in then.
    std::string Difference(Assumed assumed) const;

    /// Whether frmLatLng has to lead from the source's degrees to the drawings: through OSTN02.INT or
    /// OSTN97.INT, which the projection library would not find, or through an operation.
    bool SuitsLatLng() const;

    /// Prepares the conversion to the drawings' system; shows a grid that is missing, with `sourceName`
    /// before it. Says why there is no conversion; "" when there is one.
    std::string PrepareConversion(std::string_view sourceName);
    /// In place. Results in a grid have three decimals. Points that cannot be converted keep what they hold.
    /// Returns how many those are.
    std::size_t ToDrawing(std::span<util::PlanePoint> points);

private:
    class Conversion;

    config::Run& run_;
    std::unique_ptr<Conversion> conversion_;
};

}  // namespace vexlator::coords
