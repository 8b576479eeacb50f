// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/kml/KmlWriter.h"

#include "formats/xml/XmlText.h"
#include "util/Numbers.h"

namespace vexlator::formats {

namespace {

constexpr int degreeDecimals = 6;

constexpr std::string_view documentBegin =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
    "<kml xmlns=\"http://earth.google.com/kml/2.1\">\r\n"
    "<Document>\r\n"
    " <name>";

// Blue, half-transparent areas: the colour's bytes are alpha, blue, green, red.
constexpr std::string_view documentHead =
    "</name>\r\n"
    " <description>Produced by Pictrove from Davik</description>\r\n"
    " <visibility>1</visibility>\r\n"
    "  <Style id=\"transBluePoly\">\r\n"
    "  <LineStyle>\r\n"
    "  <width>1.5</width>\r\n"
    "  </LineStyle>\r\n"
    "  <PolyStyle>\r\n"
    "  <color>7dff0000</color>\r\n"
    "  </PolyStyle>\r\n"
    "  </Style>\r\n";

/// The text around the coordinates of a shape.
struct Frame {
    std::string_view begin, end;
};

constexpr Frame pointFrame = {"  <Point>\r\n    <coordinates>", "</coordinates>\r\n   </Point>\r\n"};
constexpr Frame lineFrame = {"  <LineString>\r\n    <coordinates>", "</coordinates>\r\n   </LineString>\r\n"};
constexpr Frame areaFrame = {
    "  <styleUrl>#transBluePoly</styleUrl>\r\n"
    "  <Polygon>\r\n"
    "  <outerBoundaryIs>\r\n"
    "  <LinearRing>\r\n"
    "    <coordinates>",
    "</coordinates>\r\n"
    "  </LinearRing>\r\n"
    "  </outerBoundaryIs>\r\n"
    "  </Polygon>\r\n"};

const Frame& FrameOf(KmlShape shape) {
    switch (shape) {
        case KmlShape::Point:
            return pointFrame;
        case KmlShape::Line:
            return lineFrame;
        case KmlShape::Area:
            break;
    }
    return areaFrame;
}

char* WriteHeight(char* out, double height, std::optional<int> decimals) {
    if (decimals) return util::WriteFixed(out, height, *decimals);
    return util::WriteShortest(out, height);
}

}  // namespace

KmlWriter::KmlWriter(platform::OutputFile& file, std::string_view documentName,
                     std::optional<int> heightDecimals)
    : file_(&file), heightDecimals_(heightDecimals) {
    file_->Write(documentBegin);
    WriteXmlText(*file_, documentName);
    file_->Write(documentHead);
}

void KmlWriter::BeginPlacemark(std::string_view name) {
    file_->Write(" <Placemark>\r\n  <name>");
    WriteXmlText(*file_, name);
    file_->Write("</name>\r\n<description><![CDATA[\r\n<table border=\"0\">\r\n");
}

std::uint64_t KmlWriter::AddValue(std::string_view value) {
    file_->Write("<tr><td>");
    std::uint64_t replaced = WriteXmlText(*file_, value);
    file_->Write("</td></tr>\r\n");
    return replaced;
}

void KmlWriter::AddImage(std::string_view address) {
    file_->Write("<tr><td><img src = \"");
    WriteXmlText(*file_, address);
    file_->Write("\" width=\"240\" height=\"180\"></img></td></tr>\r\n");
}

void KmlWriter::EndDescription(std::string_view fullSize) {
    file_->Write("</table>\r\n");
    if (!fullSize.empty()) {
        file_->Write("<a href=\"");
        WriteXmlText(*file_, fullSize);
        file_->Write("\" target=\"_blank\">Open FullSize</a>\r\n");
    }
    file_->Write("]]></description>\r\n");
}

void KmlWriter::AddGeometry(KmlShape shape, std::span<const util::PlanePoint> positions,
                            std::span<const double> heights) {
    ++geometries_;
    const Frame& frame = FrameOf(shape);
    file_->Write(frame.begin);
    AddCoordinates(positions, heights);
    file_->Write(frame.end);
}

void KmlWriter::AddCoordinates(std::span<const util::PlanePoint> positions, std::span<const double> heights) {
    for (std::size_t i = 0; i < positions.size(); ++i) {
        char* begin = file_->Reserve(3 * util::longestFixed + 4);
        char* out = begin;
        if (i > 0) {
            *out++ = '\r';
            *out++ = '\n';
        }
        out = util::WriteFixed(out, positions[i].x, degreeDecimals);
        *out++ = ',';
        out = util::WriteFixed(out, positions[i].y, degreeDecimals);
        *out++ = ',';
        out = WriteHeight(out, heights[i], heightDecimals_);
        file_->Advance(static_cast<std::size_t>(out - begin));
    }
}

void KmlWriter::EndPlacemark() {
    file_->Write(" </Placemark>\r\n");
}

void KmlWriter::Finish() {
    file_->Write("</Document>\r\n</kml>\r\n");
}

}  // namespace vexlator::formats
