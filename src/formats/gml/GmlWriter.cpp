// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/gml/GmlWriter.h"

#include "formats/xml/XmlText.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <array>

namespace vexlator::formats {

namespace {

constexpr std::string_view documentBegin =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<vx:FeatureCollection xmlns:gml=\"http://www.opengis.net/gml/3.2\""
    " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"\n"
    "    xmlns:vx=\"";

/// The texts of a shape: before its identifier, and around its coordinates.
struct Frame {
    std::string_view begin, coordinates, end;
};

constexpr std::array<Frame, 5> frames = {
    Frame{"  <vx:geometry><gml:Point", "<gml:pos>", "</gml:pos></gml:Point></vx:geometry>\n"},
    Frame{"  <vx:geometry><gml:LineString", "<gml:posList>",
          "</gml:posList></gml:LineString></vx:geometry>\n"},
    Frame{"  <vx:geometry><gml:Polygon", "<gml:exterior><gml:LinearRing><gml:posList>",
          "</gml:posList></gml:LinearRing></gml:exterior></gml:Polygon></vx:geometry>\n"},
    Frame{"  <vx:geometry><gml:Curve", "<gml:segments><gml:Circle><gml:posList>",
          "</gml:posList></gml:Circle></gml:segments></gml:Curve></vx:geometry>\n"},
    Frame{"  <vx:geometry><gml:Curve", "<gml:segments><gml:Arc><gml:posList>",
          "</gml:posList></gml:Arc></gml:segments></gml:Curve></vx:geometry>\n"},
};

/// Room for the envelope, whose corners are known at the end. What it does not need stays blank.
constexpr std::size_t longestEnvelope = 512;

}  // namespace

GmlWriter::GmlWriter(platform::OutputFile& file, const GmlDocument& document) : file_(file) {
    file_.Write(documentBegin);
    WriteXmlText(file_, document.targetNamespace);
    file_.Write("\" xsi:schemaLocation=\"");
    WriteXmlText(file_, document.targetNamespace);
    file_.Write(" ");
    file_.Write(util::PercentEncoded(document.schemaFile, "-._~"));
    file_.Write("\" gml:id=\"drawing\">\n");
    envelopeAt_ = file_.Size();
    file_.Write(std::string(longestEnvelope, ' ') + "\n");
    if (!document.srsName.empty()) attributes_ = " srsName=\"" + document.srsName + "\"";
}

void GmlWriter::BeginFeature(std::string_view element, std::string_view id) {
    element_ = element;
    id_ = id;
    file_.Write("<vx:featureMember><vx:");
    file_.Write(element_);
    file_.Write(" gml:id=\"F");
    file_.Write(id_);
    file_.Write("\">\n");
}

std::uint64_t GmlWriter::AddValue(const Element& property, std::string_view value) {
    file_.Write("  ");
    file_.Write(property.begin);
    std::uint64_t replaced = WriteXmlText(file_, value);
    file_.Write(property.end);
    return replaced;
}

void GmlWriter::AddGeometry(GmlShape shape, std::span<const util::PlanePoint> positions,
                            std::span<const double> heights) {
    const Frame& frame = frames.at(static_cast<std::size_t>(shape));
    file_.Write(frame.begin);
    file_.Write(" gml:id=\"G");
    file_.Write(id_);
    file_.Write("\"");
    file_.Write(attributes_);
    file_.Write(heights.empty() ? ">" : " srsDimension=\"3\">");
    file_.Write(frame.coordinates);
    for (const util::PlanePoint& position : positions) Cover(position);
    AddCoordinates(positions, heights);
    file_.Write(frame.end);
}

void GmlWriter::AddCoordinates(std::span<const util::PlanePoint> positions, std::span<const double> heights) {
    for (std::size_t i = 0; i < positions.size(); ++i) {
        char* begin = file_.Reserve(3 * util::longestShortest + 3);
        char* out = begin;
        if (i > 0) *out++ = ' ';
        out = util::WriteShortest(out, positions[i].x);
        *out++ = ' ';
        out = util::WriteShortest(out, positions[i].y);
        if (!heights.empty()) {
            *out++ = ' ';
            out = util::WriteShortest(out, heights[i]);
        }
        file_.Advance(static_cast<std::size_t>(out - begin));
    }
}

void GmlWriter::EndFeature() {
    file_.Write("</vx:");
    file_.Write(element_);
    file_.Write("></vx:featureMember>\n");
}

void GmlWriter::Cover(const util::PlanePoint& position) {
    if (!isCovered_) least_ = most_ = position;
    isCovered_ = true;
    least_ = {std::min(least_.x, position.x), std::min(least_.y, position.y)};
    most_ = {std::max(most_.x, position.x), std::max(most_.y, position.y)};
}

void GmlWriter::WriteEnvelope() {
    if (!isCovered_) return;
    auto corner = [](const util::PlanePoint& at) {
        return util::FormatShortest(at.x) + " " + util::FormatShortest(at.y);
    };
    std::string envelope = "<gml:boundedBy><gml:Envelope" + attributes_ + "><gml:lowerCorner>" +
                           corner(least_) + "</gml:lowerCorner><gml:upperCorner>" + corner(most_) +
                           "</gml:upperCorner></gml:Envelope></gml:boundedBy>";
    if (envelope.size() <= longestEnvelope) file_.WriteAt(envelopeAt_, envelope);
}

void GmlWriter::Finish() {
    file_.Write("</vx:FeatureCollection>\n");
    WriteEnvelope();
}

}  // namespace vexlator::formats
