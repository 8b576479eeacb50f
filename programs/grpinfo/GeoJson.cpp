// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "grpinfo/GeoJson.h"

#include "background/package/PackageElements.h"
#include "util/JsonText.h"

#include <cmath>
#include <string>

namespace vexlator::grpinfo {

namespace {

using namespace background;

void AppendPosition(std::string& out, double x, double y) {
    out += '[';
    util::AppendNumber(out, x);
    out += ',';
    util::AppendNumber(out, y);
    out += ']';
}

/// Vertices are sums of hundredths. Further digits are noise.
double Rounded(double value) {
    return std::round(value * 1e4) / 1e4;
}

void AppendPositions(std::string& out, const std::vector<util::PlanePoint>& points) {
    out += '[';
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (i > 0) out += ',';
        AppendPosition(out, Rounded(points[i].x), Rounded(points[i].y));
    }
    out += ']';
}

/// A ring by the rules of GeoJSON: four positions or more, the last equal to the first. Ends that differ only
/// by the rounding of steps are one vertex.
void CloseRing(std::vector<util::PlanePoint>& ring) {
    util::PlanePoint first = ring.front(), last = ring.back();
    double tolerance = 0.01 + 0.005 * static_cast<double>(ring.size());
    if (std::hypot(first.x - last.x, first.y - last.y) > tolerance)
        ring.push_back(first);
    else
        ring.back() = first;
    while (ring.size() < 4) ring.push_back(first);
}

void AppendPolygon(std::string& out, const PackageReader& package, const Element& area) {
    out += R"("type":"Polygon","coordinates":)";
    char separator = '[';
    for (std::vector<util::PlanePoint>& ring : RingsOf(package, area)) {
        CloseRing(ring);
        out += separator;
        AppendPositions(out, ring);
        separator = ',';
    }
    out += ']';
}

void AppendGeometry(std::string& out, const PackageReader& package, const Element& element) {
    if (element.IsArea()) return AppendPolygon(out, package, element);
    if (element.IsLine() && element.points.size() > 1) {
        out += R"("type":"LineString","coordinates":)";
        return AppendPositions(out, element.points);
    }
    out += R"("type":"Point","coordinates":)";
    if (element.IsText())
        AppendPosition(out, element.text.x, element.text.y);
    else
        AppendPosition(out, element.points[0].x, element.points[0].y);
}

void AppendMember(std::string& out, std::string_view name, double value) {
    out += ",\"";
    out += name;
    out += "\":";
    util::AppendNumber(out, value);
}

void AppendProperties(std::string& out, const Tile& tile, const Element& element) {
    const ElementHeader& header = element.header;
    out += R"("file":)";
    util::AppendText(out, tile.file->name);
    AppendMember(out, "offset", static_cast<double>(element.offset));
    AppendMember(out, "type", header.type);
    AppendMember(out, "keyHigh", header.keyHigh);
    AppendMember(out, "keyLow", header.keyLow);
    AppendMember(out, "classA", header.classA);
    AppendMember(out, "classB", header.classB);
    AppendMember(out, "classC", header.classC);
    if (!element.IsText()) return;
    out += R"(,"text":)";
    util::AppendText(out, element.characters);
    AppendMember(out, "height", element.text.height / 10.0);
    AppendMember(out, "rotation", element.text.rotation / 10.0);
}

}  // namespace

void PrintGeoJson(const PackageReader& package, const std::function<void(std::string_view)>& print) {
    print("{\"type\":\"FeatureCollection\",\"features\":[");
    const char* separator = "\n";
    std::string out;
    ForEachElement(package, "ALRT",
                   [&](const PackageReader& member, const Tile& tile, const Element& element) {
                       out = separator;
                       out += R"({"type":"Feature","geometry":{)";
                       AppendGeometry(out, member, element);
                       out += R"(},"properties":{)";
                       AppendProperties(out, tile, element);
                       out += "}}";
                       print(out);
                       separator = ",\n";
                   });
    print("\n]}\n");
}

}  // namespace vexlator::grpinfo
