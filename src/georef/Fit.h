// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/worldfile/WorldFile.h"
#include "georef/Sentence.h"
#include "util/Geometry.h"

#include <array>
#include <optional>
#include <stdexcept>
#include <vector>

namespace vexlator::georef {

/// A control point, known on the image and on the ground. Pixel positions have their origin at the outer
/// corner of the top left pixel, y downwards.
struct ControlPoint {
    int number = 0;  ///< its number for the user, from 1
    util::PlanePoint pixel, ground;
};

enum class FitKind {
    Similarity,  ///< one scale, a rotation and a shift: 2 points
    Affine,      ///< six terms: 3 points and more
    SecondOrder  ///< twelve terms, with curvature: 6 points and more
};

/// Control points that do not determine a fit; what() is the reason in English.
struct FitError : std::runtime_error {
    explicit FitError(const Sentence& why) : std::runtime_error(why.English()), reason(why) {}
    Sentence reason;
};

/// The residual of a control point: the distance between the fit and the given ground position.
struct Residual {
    int number = 0;
    double metres = 0;  ///< in ground units
    double pixels = 0;
};

/// Root mean square of the residuals.
struct MeanError {
    double metres = 0, pixels = 0;
};

/// The transformation from pixels to ground, by least squares if there are more points than the terms need.
class Fit {
public:
    enum class Order { First, Second };
    /// @throws FitError: fewer points than the order needs (2 and 6), points that coincide, or are on one
    /// line or one curve of second order
    explicit Fit(const std::vector<ControlPoint>& points, Order order = Order::First);

    FitKind Kind() const { return kind_; }
    util::PlanePoint Ground(util::PlanePoint pixel) const;
    /// The world file that touches the fit at a pixel; the same at every pixel unless the fit is of second
    /// order.
    formats::WorldFile TermsAt(util::PlanePoint pixel) const;
    /// The inverse of Ground(), looked for near a pixel; nothing where a fit of second order has none there.
    std::optional<util::PlanePoint> Pixel(util::PlanePoint ground, util::PlanePoint near) const;

    /// Worst first.
    const std::vector<Residual>& Residuals() const { return residuals_; }
    MeanError Error() const;
    /// Whether the image is mirrored, which happens if two points, or x and y, are exchanged.
    bool IsMirrored() const;
    /// In words: the kind of fit, the number of points, the pixel size and the rotation.
    Sentence Description() const;
    /// Whether there are more points than the terms need: without another point every fit is exact.
    bool IsChecked() const;

private:
    void FitSimilarity(const std::vector<ControlPoint>& points);
    void FitTerms(const std::vector<ControlPoint>& points);
    void FindResiduals(const std::vector<ControlPoint>& points);
    Sentence KindInWords() const;

    static constexpr std::size_t termCount = 6;
    FitKind kind_;
    /// Terms of 1, u, v, u^2, uv, v^2, where u and v are the scaled pixel position relative to its centre.
    /// The result is relative to the ground's centre.
    std::array<double, termCount> x_{}, y_{};
    util::PlanePoint pixelCentre_, groundCentre_;
    double pixelScale_ = 1;
    std::vector<Residual> residuals_;
};

}  // namespace vexlator::georef
