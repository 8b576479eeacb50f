// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gpx/GpxWriter.h"

#include "formats/xml/XmlText.h"
#include "util/Numbers.h"

namespace vexlator::gpx {

namespace {

constexpr std::string_view lineEnd = "\r\n";

}  // namespace

bool GpxPosition::IsOnEarth() const {
    if (!IsConverted()) return false;
    double lat = util::NumberOf(latitude), lon = util::NumberOf(longitude);
    return lat >= -90 && lat <= 90 && lon >= -180 && lon < 180;
}

void GpxWriter::Begin(const GpxPosition& start, const GpxPosition& end) {
    Line("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\" ?>");
    Line(settings_.strict ? "<gpx version=\"1.1\" creator=\"Gorvane WorkFlow\" "
                            "xmlns=\"http://www.topografix.com/GPX/1/1\">"
                          : "<gpx creator=\"Gorvane WorkFlow\">");
    Line(" <metadata>");
    file_.Write("  <link href=\"");
    formats::WriteXmlText(file_, settings_.webBase);
    Line("\">");
    Line("   <text>Veltrom Professional Services</text>");
    Line("  </link>");
    Time("  ", start.time);
    Line(" </metadata>");
    Waypoint("Day Start", start);
    if (settings_.strict) Waypoint("Day End", end);
    Line(" <trk>");
    Line("  <name>Daily Log</name>");
    Line("  <trkseg>");
}

void GpxWriter::TrackPoint(const GpxPosition& position) {
    Element("   <trkpt", position);
    Height("    ", position.height);
    Time("    ", position.time);
    Line("   </trkpt>");
}

void GpxWriter::End(const GpxPosition& end) {
    Line("  </trkseg>");
    Line(" </trk>");
    if (!settings_.strict) Waypoint("Day End", end);
    Line(settings_.strict ? "</gpx>" : " </gpx>");
}

void GpxWriter::Waypoint(std::string_view name, const GpxPosition& position) {
    Element(" <wpt", position);
    Height("  ", position.height);
    Line("  <name>" + std::string(name) + "</name>");
    Line(" </wpt>");
}

void GpxWriter::Element(std::string_view tag, const GpxPosition& position) {
    line_ = tag;
    line_.append(" lat=\"")
        .append(position.latitude)
        .append("\" lon=\"")
        .append(position.longitude)
        .append("\">");
    Line(line_);
}

void GpxWriter::Height(std::string_view indent, const std::string& height) {
    if (settings_.strict && height.find('e') != std::string::npos) return;
    file_.Write(indent);
    Line("<ele>" + height + "</ele>");
}

void GpxWriter::Time(std::string_view indent, const TrailTime& time) {
    if (settings_.strict && !time.IsValid()) return;
    file_.Write(indent);
    file_.Write("<time>");
    formats::WriteXmlText(file_, time.Text());
    Line("</time>");
}

void GpxWriter::Line(std::string_view text) {
    file_.Write(text);
    file_.Write(lineEnd);
}

}  // namespace vexlator::gpx
