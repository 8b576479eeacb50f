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

/// How the numbers of a whole array come back.
enum class Rounding {
    AsText,  ///< as the texts would read: degrees with six decimals, grid metres with three
    None     ///< as computed
};

/// National grid to latitude and longitude, and back. [GPS] TRANSFORMATION of gv.ini names the definition
/// file that decides how, or holds the definition, once for the life of the object:
/// - neither a definition nor a file that is there and not empty: the British National Grid through a
///   correction grid (CorrectionGrid.h);
/// - its path holds "LatLng", in any letter case: the drawing is in degrees already, nothing is converted;
/// - else: the coordinate system that is defined (Transformer.h).
/// What cannot be converted well (outside the grid, not a number) is never converted roughly: it gives no
/// result. Made for one thread.
class frmLatLng {
public:
    /// Prepares the correction grid where it is the one to use; shows "No Correction File Found" when there
    /// is none. A coordinate system is loaded when it is first needed, once for each direction.
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
    /// `heights` is empty or as long as `points`. Points that cannot be converted keep what they hold.
    /// Returns how many those are. Give whole layers rather than single features: points far apart cost much
    /// more in single calls, as each makes the projection library unpack a part of its grid.
    /// @throws std::invalid_argument: heights of another number.
    std::size_t GridToLatLng(std::span<util::PlanePoint> points, std::span<double> heights = {},
                             Rounding rounding = Rounding::AsText);
    std::size_t LatLngToGrid(std::span<util::PlanePoint> points, std::span<double> heights = {},
                             Rounding rounding = Rounding::AsText);

    /// Decimals of heights in the texts above; nothing: as many as they need.
    std::optional<int> HeightDecimals() const;
    /// A height as the texts above have it.
    std::string HeightText(double height) const;

    /// For people: what converts, with the names of its files, or why nothing is converted.
    std::string Description();

private:
    std::unique_ptr<Backend> backend_;
};

}  // namespace vexlator::coords
