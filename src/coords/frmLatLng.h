// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "util/Geometry.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vexlator::coords {

class Backend;

/// The form of the numbers of a whole array.
enum class Rounding {
    AsText,  ///< rounded as the texts: degrees with six decimals, grid metres with three
    None     ///< not rounded
};

/// National grid to latitude and longitude, and back. [GPS] TRANSFORMATION of gv.ini names the definition
/// file, or holds the definition, for the lifetime of the object:
/// - neither a definition nor an existing file with content: the British National Grid with a
///   correction grid (CorrectionGrid.h);
/// - its path contains "LatLng", in any letter case: the drawing is already in degrees, nothing is converted;
/// - else: the defined coordinate system (Transformer.h).
///
/// A point that cannot be converted well (outside the grid, NaN) gets no result instead of a rough one. Used
/// by one thread.
class frmLatLng {
public:
    /// Prepares the correction grid if it is used; shows "No Correction File Found" if there is none. A
    /// coordinate system is loaded at its first use, once for each direction.
    explicit frmLatLng(config::Run& run);
    ~frmLatLng();
    frmLatLng(const frmLatLng&) = delete;
    frmLatLng& operator=(const frmLatLng&) = delete;

    /// Latitude, longitude and height, or easting, northing and height.
    struct Texts {
        std::string first, second, height;
    };

    /// Latitude and longitude as decimal degrees with six decimals or, with `degreesAsText`, as angle texts
    /// whose seconds have nine decimals, so that they read back as the same six decimals.
    std::optional<Texts> GridToLatLng(double easting, double northing, double height, bool degreesAsText);
    /// Latitude and longitude are angle texts (they hold a ') or decimal degrees. Grid values come back in
    /// metres with three decimals.
    std::optional<Texts> LatLngToGrid(std::string_view latitude, std::string_view longitude,
                                      std::string_view height);

    /// Whole arrays, in place: x is the easting or longitude, y the northing or latitude in decimal degrees.
    /// `heights` is empty or as long as `points`. Points that cannot be converted keep their values. Returns
    /// the number of these points. Pass whole layers rather than single features: distant points cost much
    /// more in single calls, because each call makes the projection library unpack a part of its grid.
    /// @throws std::invalid_argument: heights of another number.
    std::size_t GridToLatLng(std::span<util::PlanePoint> points, std::span<double> heights = {},
                             Rounding rounding = Rounding::AsText);
    std::size_t LatLngToGrid(std::span<util::PlanePoint> points, std::span<double> heights = {},
                             Rounding rounding = Rounding::AsText);

    /// Decimals of heights in the texts above; nothing: as many as needed.
    std::optional<int> HeightDecimals() const;
    /// A height in the form of the texts above.
    std::string HeightText(double height) const;

    /// Description for the user: the conversion with its files, or why nothing is converted.
    std::string Description();

private:
    std::unique_ptr<Backend> backend_;
};

}  // namespace vexlator::coords
