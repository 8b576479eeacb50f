// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpx/GpxSettings.h"
#include "gpx/TrailFile.h"
#include "platform/Files.h"

#include <string>
#include <string_view>

namespace vexlator::gpx {

/// A position with its texts for a GPX file; empty texts if it could not be converted.
struct GpxPosition {
    TrailTime time;
    std::string latitude, longitude, height;
    bool IsConverted() const { return !latitude.empty(); }
    /// Within the ranges of GPX 1.1, types latitudeType and longitudeType: latitude -90 to 90, longitude -180
    /// to below 180 degrees.
    bool IsOnEarth() const;
};

/// Writes a day's trail as GPX: a waypoint at its start and one at its end, and one track. Lines end in CR
/// LF. Positions of strict files must be within the ranges. Source: GPX 1.1 schema, elements gpx, wpt, trk,
/// trkseg and trkpt.
class GpxWriter {
public:
    GpxWriter(platform::OutputFile& file, const GpxSettings& settings) : file_(file), settings_(settings) {}

    /// Everything before the first track point. A strict file needs the end of the trail here.
    void Begin(const GpxPosition& start, const GpxPosition& end);
    void TrackPoint(const GpxPosition& position);
    /// Everything after the last track point.
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
