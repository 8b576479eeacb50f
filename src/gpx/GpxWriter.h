// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpx/GpxSettings.h"
#include "gpx/TrailFile.h"
#include "platform/Files.h"

#include <string>
#include <string_view>

namespace vexlator::gpx {

/// A position with the texts that a GPX file shows; empty ones when it could not be converted.
struct GpxPosition {
    TrailTime time;
    std::string latitude, longitude, height;
    bool IsConverted() const { return !latitude.empty(); }
    /// Within the ranges of GPX: latitude -90 to 90, longitude -180 to below 180 degrees.
    bool IsOnEarth() const;
};

/// Writes a day's trail as GPX: a waypoint at its start and one at its end, and one track, in lines that end
/// in CR LF. Positions of strict files have to be on earth.
class GpxWriter {
public:
    GpxWriter(platform::OutputFile& file, const GpxSettings& settings) : file_(file), settings_(settings) {}

    /// Everything before the first track point. A strict file needs the end of the trail already here.
    void Begin(const GpxPosition& start, const GpxPosition& end);
    void TrackPoint(const GpxPosition& position);
    /// Everything behind the last track point.
    void End(const GpxPosition& end);

private:
    void Waypoint(std::string_view name, const GpxPosition& position);
    void Height(std::string_view indent, const std::string& height);
    void Time(std::string_view indent, const TrailTime& time);
    void Element(std::string_view tag, const GpxPosition& position);
    void Line(std::string_view text);

    platform::OutputFile& file_;
    const GpxSettings& settings_;
    std::string line_;
};

}  // namespace vexlator::gpx
