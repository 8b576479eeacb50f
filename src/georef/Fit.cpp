// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "georef/Fit.h"

#include "georef/LeastSquares.h"
#include "util/Angles.h"
#include "util/Numbers.h"

#include <algorithm>
#include <cmath>

namespace vexlator::georef {

namespace {

using util::PlanePoint;
using Member = PlanePoint ControlPoint::*;

constexpr std::size_t pointsOfSimilarity = 2, pointsOfSecondOrder = 6;

std::size_t TermsOf(FitKind kind) {
    return kind == FitKind::SecondOrder ? 6 : 3;
}

PlanePoint Centre(const std::vector<ControlPoint>& points, Member member) {
    PlanePoint sum;
    for (const ControlPoint& point : points) {
        sum.x += (point.*member).x;
        sum.y += (point.*member).y;
    }
    auto count = static_cast<double>(points.size());
    return {sum.x / count, sum.y / count};
}

/// The spread of points along the line that fits them best, and across it (mean squares).
struct Spread {
    double along = 0, across = 0;
};

Spread SpreadOf(const std::vector<ControlPoint>& points, Member member) {
    PlanePoint centre = Centre(points, member);
    double xx = 0, xy = 0, yy = 0;
    for (const ControlPoint& point : points) {
        double x = (point.*member).x - centre.x, y = (point.*member).y - centre.y;
        xx += x * x;
        xy += x * y;
        yy += y * y;
    }
    auto count = static_cast<double>(points.size());
    double larger = (xx + yy) / 2 + std::hypot((xx - yy) / 2, xy);
    double smaller = larger > 0 ? std::max((xx * yy - xy * xy) / larger, 0.0) : 0;
    return {std::sqrt(larger / count), std::sqrt(smaller / count)};
}

/// Limit of the ratio of width to length: narrower points do not determine the terms across their line.
constexpr double thinnestPixels = 1e-3, thinnestGround = 1e-7;

void RequireSpread(const std::vector<ControlPoint>& points, FitKind kind) {
    Spread pixels = SpreadOf(points, &ControlPoint::pixel), ground = SpreadOf(points, &ControlPoint::ground);
    std::string count = std::to_string(points.size());
    if (!std::isfinite(pixels.along) || !std::isfinite(ground.along))
        throw FitError(
            InWords("vexlator", "the control points have values that are too large to compute with"));
    if (pixels.along == 0)
        throw FitError(InWords("vexlator", "all control points have the same position on the image"));
    if (ground.along == 0)
        throw FitError(InWords("vexlator", "all control points have the same ground position"));
    if (kind == FitKind::Similarity) return;
    if (pixels.across < pixels.along * thinnestPixels)
        throw FitError(InWords("vexlator",
                               "all %1 control points are on one line of the image; add one beside that line")
                           .With({count}));
    if (ground.across < ground.along * thinnestGround)
        throw FitError(
            InWords("vexlator",
                    "the ground positions of all %1 control points are on one line; check their values")
                .With({count}));
}

FitKind KindFor(std::size_t count, Fit::Order order) {
    if (count < pointsOfSimilarity)
        throw FitError(InWords("vexlator", "a fit needs at least 2 control points and has %1")
                           .With({std::to_string(count)}));
    if (order == Fit::Order::First)
        return count == pointsOfSimilarity ? FitKind::Similarity : FitKind::Affine;
    if (count < pointsOfSecondOrder)
        throw FitError(InWords("vexlator", "a fit of second order needs at least 6 control points and has %1")
                           .With({std::to_string(count)}));
    return FitKind::SecondOrder;
}

TermRow FactorsAt(PlanePoint p) {
    return {1, p.x, p.y, p.x * p.x, p.x * p.y, p.y * p.y};
}

}  // namespace

Fit::Fit(const std::vector<ControlPoint>& points, Order order) : kind_(KindFor(points.size(), order)) {
    RequireSpread(points, kind_);
    pixelCentre_ = Centre(points, &ControlPoint::pixel);
    groundCentre_ = Centre(points, &ControlPoint::ground);
    pixelScale_ = 1 / SpreadOf(points, &ControlPoint::pixel).along;
    if (kind_ == FitKind::Similarity) {
        FitSimilarity(points);
    } else {
        FitTerms(points);
    }
    FindResiduals(points);
}

/// The image's y axis points down. With y reversed, both are complex numbers with the same orientation.
void Fit::FitSimilarity(const std::vector<ControlPoint>& points) {
    double u = (points[1].pixel.x - points[0].pixel.x) * pixelScale_;
    double v = (points[0].pixel.y - points[1].pixel.y) * pixelScale_;
    double x = points[1].ground.x - points[0].ground.x, y = points[1].ground.y - points[0].ground.y;
    double square = u * u + v * v;
    double cosine = (x * u + y * v) / square, sine = (y * u - x * v) / square;
    x_ = {0, cosine, sine};
    y_ = {0, sine, -cosine};
}

void Fit::FitTerms(const std::vector<ControlPoint>& points) {
    std::vector<Observation> observations;
    for (const ControlPoint& point : points)
        observations.push_back({FactorsAt({(point.pixel.x - pixelCentre_.x) * pixelScale_,
                                           (point.pixel.y - pixelCentre_.y) * pixelScale_}),
                                point.ground.x - groundCentre_.x, point.ground.y - groundCentre_.y});
    std::optional<Terms> terms = SolveLeastSquares(std::move(observations), TermsOf(kind_));
    if (!terms)
        throw FitError(kind_ == FitKind::SecondOrder
                           ? InWords("vexlator",
                                     "the control points are on one curve of second order; spread them over "
                                     "the image, or fit in first order")
                           : InWords("vexlator", "the control points do not determine a fit; add one"));
    x_ = terms->first;
    y_ = terms->second;
}

PlanePoint Fit::Ground(PlanePoint pixel) const {
    TermRow factors =
        FactorsAt({(pixel.x - pixelCentre_.x) * pixelScale_, (pixel.y - pixelCentre_.y) * pixelScale_});
    PlanePoint ground;
    for (std::size_t i = 0; i < termCount; ++i) {
        ground.x += x_[i] * factors[i];
        ground.y += y_[i] * factors[i];
    }
    return {ground.x + groundCentre_.x, ground.y + groundCentre_.y};
}

formats::WorldFile Fit::TermsAt(PlanePoint pixel) const {
    double u = (pixel.x - pixelCentre_.x) * pixelScale_, v = (pixel.y - pixelCentre_.y) * pixelScale_;
    formats::WorldFile terms;
    terms.a = (x_[1] + 2 * x_[3] * u + x_[4] * v) * pixelScale_;
    terms.b = (x_[2] + x_[4] * u + 2 * x_[5] * v) * pixelScale_;
    terms.d = (y_[1] + 2 * y_[3] * u + y_[4] * v) * pixelScale_;
    terms.e = (y_[2] + y_[4] * u + 2 * y_[5] * v) * pixelScale_;
    PlanePoint ground = Ground(pixel);
    terms.c = ground.x - terms.a * (pixel.x - 0.5) - terms.b * (pixel.y - 0.5);
    terms.f = ground.y - terms.d * (pixel.x - 0.5) - terms.e * (pixel.y - 0.5);
    return terms;
}

std::optional<PlanePoint> Fit::Pixel(PlanePoint ground, PlanePoint near) const {
    constexpr int mostSteps = 30;
    constexpr double closeEnough = 1e-7;
    for (int step = 0; step < mostSteps; ++step) {
        formats::WorldFile terms = TermsAt(near);
        if (terms.Determinant() == 0) return std::nullopt;
        PlanePoint next = terms.Pixel(ground);
        if (!std::isfinite(next.x) || !std::isfinite(next.y)) return std::nullopt;
        bool isThere =
            kind_ != FitKind::SecondOrder || util::Distance(next.x, next.y, near.x, near.y) < closeEnough;
        if (isThere) return next;
        near = next;
    }
    return std::nullopt;
}

void Fit::FindResiduals(const std::vector<ControlPoint>& points) {
    for (const ControlPoint& point : points) {
        PlanePoint found = Ground(point.pixel);
        formats::WorldFile terms = TermsAt(point.pixel);
        PlanePoint wanted = terms.Pixel(point.ground);
        residuals_.push_back({point.number, util::Distance(found.x, found.y, point.ground.x, point.ground.y),
                              util::Distance(wanted.x, wanted.y, point.pixel.x, point.pixel.y)});
    }
    std::stable_sort(residuals_.begin(), residuals_.end(),
                     [](const Residual& a, const Residual& b) { return a.metres > b.metres; });
}

MeanError Fit::Error() const {
    MeanError squares;
    for (const Residual& residual : residuals_) {
        squares.metres += residual.metres * residual.metres;
        squares.pixels += residual.pixels * residual.pixels;
    }
    auto count = static_cast<double>(residuals_.size());
    return {std::sqrt(squares.metres / count), std::sqrt(squares.pixels / count)};
}

bool Fit::IsChecked() const {
    return kind_ != FitKind::Similarity && residuals_.size() > TermsOf(kind_);
}

bool Fit::IsMirrored() const {
    return TermsAt(pixelCentre_).Determinant() > 0;
}

Sentence Fit::Description() const {
    formats::WorldFile terms = TermsAt(pixelCentre_);
    double turn = std::atan2(terms.d, terms.a) * util::degreesPerRadian;
    std::string angle = util::FormatFixed(std::fabs(turn), 2);
    return KindInWords() +
           InWords("vexlator", ": a pixel is %1 on the ground, ")
               .With({util::FormatFixed(terms.PixelSize(), 4)}) +
           (turn < 0 ? InWords("vexlator", "the image rotated by %1 degrees clockwise").With({angle})
                     : InWords("vexlator", "the image rotated by %1 degrees anticlockwise").With({angle}));
}

Sentence Fit::KindInWords() const {
    std::string count = std::to_string(residuals_.size());
    Sentence kind =
        kind_ == FitKind::Similarity ? InWords("vexlator", "%1 control points, similarity fit").With({count})
        : kind_ == FitKind::Affine   ? InWords("vexlator", "%1 control points, affine fit").With({count})
                                   : InWords("vexlator", "%1 control points, second order fit").With({count});
    return kind + (IsChecked() ? InWords("vexlator", " by least squares")
                               : InWords("vexlator", " without another point to check it"));
}

}  // namespace vexlator::georef
