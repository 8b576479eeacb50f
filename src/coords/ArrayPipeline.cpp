// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/ArrayPipeline.h"

#include "coords/PipelineStep.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace vexlator::coords {

namespace {

using Steps = std::span<const PipelineStep>;

constexpr double radiansPerDegree = std::numbers::pi / 180;
const char* const toDegrees = "proj=unitconvert xy_in=rad xy_out=deg";

std::string TextOf(Steps steps) {
    std::string text = "proj=pipeline";
    for (const PipelineStep& step : steps) text += " step " + step.Text();
    return text;
}

bool Take(PipelineStep& step, const char* name, bool inverse) {
    return step.TakeText("proj") == name && step.TakeFlag("inv") == inverse;
}

std::optional<TransverseMercator::Parameters> TransverseMercatorOf(PipelineStep step) {
    bool utm = step.Text().starts_with("inv proj=utm ");
    if (!Take(step, utm ? "utm" : "tmerc", true)) return std::nullopt;
    TransverseMercator::Parameters parameters;
    parameters.ellipsoid = step.TakeEllipsoid();
    if (utm) {
        parameters.longitude = (step.TakeNumber("zone", 0) * 6 - 183) * radiansPerDegree;
        parameters.scale = 0.9996;
        parameters.easting = 500000;
        parameters.northing = step.TakeFlag("south") ? 10000000 : 0;
    } else {
        parameters.latitude = step.TakeNumber("lat_0", 0) * radiansPerDegree;
        parameters.longitude = step.TakeNumber("lon_0", 0) * radiansPerDegree;
        parameters.scale = step.TakeNumber("k", 1);
        parameters.easting = step.TakeNumber("x_0", 0);
        parameters.northing = step.TakeNumber("y_0", 0);
    }
    return step.IsUnderstood() ? std::optional(parameters) : std::nullopt;
}

std::optional<Ellipsoid> GeocentricOf(PipelineStep step, bool inverse) {
    if (!Take(step, "cart", inverse)) return std::nullopt;
    Ellipsoid ellipsoid = step.TakeEllipsoid();
    return step.IsUnderstood() ? std::optional(ellipsoid) : std::nullopt;
}

std::optional<HelmertParameters> HelmertOf(PipelineStep step) {
    if (!Take(step, "helmert", false)) return std::nullopt;
    constexpr double radiansPerSecond = radiansPerDegree / 3600;
    std::string convention = step.TakeText("convention");
    double sense = convention == "coordinate_frame" ? -radiansPerSecond : radiansPerSecond;
    HelmertParameters parameters{{step.TakeNumber("x", 0), step.TakeNumber("y", 0), step.TakeNumber("z", 0)},
                                 {sense * step.TakeNumber("rx", 0), sense * step.TakeNumber("ry", 0),
                                  sense * step.TakeNumber("rz", 0)},
                                 1 + step.TakeNumber("s", 0) * 1e-6};
    return step.IsUnderstood() ? std::optional(parameters) : std::nullopt;
}

/// The shift in the first steps, which does not change heights.
constexpr std::size_t shiftSteps = 5;
std::optional<DatumShift> DatumShiftOf(Steps steps) {
    if (steps.size() < shiftSteps || steps[0].Text() != "proj=push v_3" || steps[4].Text() != "proj=pop v_3")
        return std::nullopt;
    std::optional<Ellipsoid> source = GeocentricOf(steps[1], false), target = GeocentricOf(steps[3], true);
    std::optional<HelmertParameters> helmert = HelmertOf(steps[2]);
    if (!source || !target || !helmert) return std::nullopt;
    return DatumShift(*source, *target, *helmert);
}

/// A net of points over the range of the projection, in degrees.
struct Net {
    std::vector<util::PlanePoint> points;
    std::vector<double> heights;

    explicit Net(double centralMeridian) {
        for (int latitude = -80; latitude <= 80; latitude += 8)
            for (int longitude = -10; longitude <= 10; longitude += 2) {
                points.push_back({centralMeridian + longitude, static_cast<double>(latitude)});
                heights.push_back(100.0 * longitude);
            }
    }
    Coordinates All() { return {points, heights}; }
};

/// Points that we leave to the library count as equal.
bool Agree(const Net& ours, const Net& peer, double tolerance) {
    for (std::size_t i = 0; i < ours.points.size(); ++i) {
        util::PlanePoint our = ours.points[i], other = peer.points[i];
        if (!std::isfinite(our.x) || !std::isfinite(our.y)) continue;
        bool near = std::fabs(our.x - other.x) <= tolerance && std::fabs(our.y - other.y) <= tolerance;
        if (!near || ours.heights[i] != peer.heights[i]) return false;
    }
    return true;
}

}  // namespace

std::optional<ArrayPipeline> ArrayPipeline::From(ProjContext& context, PJ& operation) {
    const std::vector<PipelineStep> steps = StepsOf(proj_pj_info(&operation).definition);
    auto parameters = steps.empty() ? std::nullopt : TransverseMercatorOf(steps[0]);
    if (!parameters) return std::nullopt;
    std::optional<DatumShift> shift = DatumShiftOf(Steps(steps).subspan(1));
    ArrayPipeline pipeline{Projection(*parameters, shift)};
    std::size_t own = shift ? 1 + shiftSteps : 1;

    Steps rest = Steps(steps).subspan(own);
    ProjObject peer = context.Create(TextOf(Steps(steps).first(own)) + " step " + toDegrees);
    if (!peer || !pipeline.AgreesWith(*peer, parameters->longitude / radiansPerDegree)) return std::nullopt;
    if (rest.size() == 1 && rest[0].Text() == toDegrees) return pipeline;
    pipeline.rest_ = context.Create(TextOf(rest));
    if (!pipeline.rest_ || !context.CanReadGrids(*pipeline.rest_)) return std::nullopt;
    return pipeline;
}

bool ArrayPipeline::AgreesWith(PJ& peer, double centralMeridian) const {
    constexpr double degrees = 1e-10, metres = 1e-5;
    Net ours(centralMeridian), theirs(centralMeridian);
    Convert(Direction::ToGrid, ours.All());
    Transform(peer, Direction::ToGrid, theirs.All());
    if (!Agree(ours, theirs, metres)) return false;
    ours = theirs;
    Convert(Direction::ToLatLng, ours.All());
    Transform(peer, Direction::ToLatLng, theirs.All());
    return Agree(ours, theirs, degrees);
}

void ArrayPipeline::Convert(Direction direction, Coordinates coordinates) const {
    bool toGrid = direction == Direction::ToGrid;
    if (rest_ && toGrid) Transform(*rest_, direction, coordinates);
    for (std::size_t begin = 0; begin < coordinates.points.size(); begin += Lanes::count) {
        std::span<util::PlanePoint> points = coordinates.points.subspan(begin);
        points = points.first(std::min(points.size(), Lanes::count));
        Lanes lanes{};
        for (std::size_t i = 0; i < points.size(); ++i) {
            lanes.x[i] = points[i].x;
            lanes.y[i] = points[i].y;
            if (!coordinates.heights.empty()) lanes.height[i] = coordinates.heights[begin + i];
        }
        ConvertLanes(direction, lanes);
        for (std::size_t i = 0; i < points.size(); ++i) points[i] = {lanes.x[i], lanes.y[i]};
    }
    if (rest_ && !toGrid) Transform(*rest_, direction, coordinates);
}

void ArrayPipeline::ConvertLanes(Direction direction, Lanes& lanes) const {
    if (direction == Direction::ToGrid) {
        if (!rest_) lanes.Scale(radiansPerDegree);
        projection_.ToGrid(lanes);
    } else {
        projection_.ToGeographic(lanes);
        if (!rest_) lanes.Scale(1 / radiansPerDegree);
    }
}

}  // namespace vexlator::coords
