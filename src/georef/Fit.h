// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "georef/WorldFile.h"
#include "util/Geometry.h"

#include <array>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace vexlator::georef {

/// A place that is known on the image and on the ground. Pixel positions have their origin at the outer
/// corner of the top left pixel, y downwards.
struct ControlPoint {
    int number = 0;  ///< as people know it, from 1
    util::PlanePoint pixel, ground;
};

enum class FitKind {
    Similarity,  ///< one scale, a turn and a shift: 2 points
    Affine,      ///< six terms: 3 points and more
    SecondOrder  ///< twelve terms, which bend: 6 points and more
};

/// Control points that determine no fit; what() says why, in a sentence for people.
struct FitError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// How far the fit puts a control point from where it was said to be.
struct Residual {
    int number = 0;
    double metres = 0;  ///< in ground units
    double pixels = 0;
};

/// Root of the mean of the squares.
struct MeanError {
    double metres = 0, pixels = 0;
};

/// What turns pixels into ground: by least squares where there are more points than the terms need.
class Fit {
public:
    enum class Order { First, Second };
    /// @throws FitError: fewer points than the order needs (2 and 6), points that coincide, lie on one line,
    /// or on one curve of second order
    explicit Fit(const std::vector<ControlPoint>& points, Order order = Order::First);

    FitKind Kind() const { return kind_; }
    util::PlanePoint Ground(util::PlanePoint pixel) const;
    /// The world file that touches the fit at a pixel; the same at every pixel unless the fit is of second
    /// order.
    WorldFile TermsAt(util::PlanePoint pixel) const;
    /// The inverse of Ground(), looked for near a pixel; nothing where a fit of second order has none there.
    std::optional<util::PlanePoint> Pixel(util::PlanePoint ground, util::PlanePoint near) const;

    /// Worst first.
    const std::vector<Residual>& Residuals() const { return residuals_; }
    MeanError Error() const;
    /// Whether the image lies mirrored, which two points exchanged, or x and y, bring about.
    bool IsMirrored() const;
    /// In words: the kind of fit, how many points, the pixel size and the turn.
    std::string Description() const;

private:
    void FitSimilarity(const std::vector<ControlPoint>& points);
    void FitTerms(const std::vector<ControlPoint>& points);
    void FindResiduals(const std::vector<ControlPoint>& points);

    static constexpr std::size_t termCount = 6;
    FitKind kind_;
    /// Terms of 1, u, v, u^2, uv, v^2, where u and v are the pixel position from its centre, scaled; the
    /// result is from the ground's centre.
    std::array<double, termCount> x_{}, y_{};
    util::PlanePoint pixelCentre_, groundCentre_;
    double pixelScale_ = 1;
    std::vector<Residual> residuals_;
};

}  // namespace vexlator::georef
