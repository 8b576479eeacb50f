// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/gml/GmlSchema.h"

#include "formats/xml/XmlText.h"
#include "util/Text.h"

#include <algorithm>
#include <charconv>

namespace vexlator::formats {

namespace {

constexpr std::string_view schemaBegin =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\" xmlns:gml=\"http://www.opengis.net/gml/3.2\"\n"
    "    xmlns:gmlsf=\"http://www.opengis.net/gmlsf/2.0\" xmlns:vx=\"";

constexpr std::string_view collection =
    "\" elementFormDefault=\"qualified\" version=\"1.0\">\n"
    "  <xs:annotation>\n"
    "    <xs:appinfo source=\"http://schemas.opengis.net/gmlsfProfile/2.0/gmlsfLevels.xsd\">\n"
    "      <gmlsf:ComplianceLevel>0</gmlsf:ComplianceLevel>\n"
    "    </xs:appinfo>\n"
    "  </xs:annotation>\n"
    "  <xs:import namespace=\"http://www.opengis.net/gml/3.2\""
    " schemaLocation=\"http://schemas.opengis.net/gml/3.2.1/gml.xsd\"/>\n"
    "  <xs:import namespace=\"http://www.opengis.net/gmlsf/2.0\""
    " schemaLocation=\"http://schemas.opengis.net/gmlsfProfile/2.0/gmlsfLevels.xsd\"/>\n"
    "  <xs:element name=\"FeatureCollection\" type=\"vx:FeatureCollectionType\""
    " substitutionGroup=\"gml:AbstractFeature\"/>\n"
    "  <xs:complexType name=\"FeatureCollectionType\">\n"
    "    <xs:complexContent>\n"
    "      <xs:extension base=\"gml:AbstractFeatureType\">\n"
    "        <xs:sequence minOccurs=\"0\" maxOccurs=\"unbounded\">\n"
    "          <xs:element name=\"featureMember\">\n"
    "            <xs:complexType>\n"
    "              <xs:complexContent>\n"
    "                <xs:extension base=\"gml:AbstractFeatureMemberType\">\n"
    "                  <xs:sequence>\n"
    "                    <xs:element ref=\"gml:AbstractFeature\"/>\n"
    "                  </xs:sequence>\n"
    "                </xs:extension>\n"
    "              </xs:complexContent>\n"
    "            </xs:complexType>\n"
    "          </xs:element>\n"
    "        </xs:sequence>\n"
    "      </xs:extension>\n"
    "    </xs:complexContent>\n"
    "  </xs:complexType>\n";

constexpr std::string_view typeBegin =
    "    <xs:complexContent>\n"
    "      <xs:extension base=\"gml:AbstractFeatureType\">\n"
    "        <xs:sequence>\n";

constexpr std::string_view typeEnd =
    "        </xs:sequence>\n"
    "      </xs:extension>\n"
    "    </xs:complexContent>\n"
    "  </xs:complexType>\n";

/// The type of a geometry that has some of the shapes.
std::string_view GeometryType(const std::set<GmlShape>& shapes) {
    if (shapes == std::set{GmlShape::Point}) return "gml:PointPropertyType";
    if (shapes == std::set{GmlShape::Area}) return "gml:SurfacePropertyType";
    bool curves = std::ranges::none_of(
        shapes, [](GmlShape shape) { return shape == GmlShape::Point || shape == GmlShape::Area; });
    return curves && !shapes.empty() ? "gml:CurvePropertyType" : "gml:GeometryPropertyType";
}

void WriteType(platform::OutputFile& file, const GmlFeatureType& type) {
    const std::string& name = type.element;
    file.Write("  <xs:element name=\"" + name + "\" type=\"vx:" + name +
               "Type\" substitutionGroup=\"gml:AbstractFeature\"/>\n  <xs:complexType name=\"" + name +
               "Type\">\n");
    file.Write(typeBegin);
    for (const GmlPropertyType& property : type.properties)
        file.Write("          <xs:element name=\"" + property.element +
                   "\" type=\"xs:" + std::string(property.type.Name()) + "\" minOccurs=\"0\"/>\n");
    file.Write("          <xs:element name=\"geometry\" type=\"" + std::string(GeometryType(type.shapes)) +
               "\" minOccurs=\"0\"/>\n");
    file.Write(typeEnd);
}

bool AreDigits(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

/// Digits with a point, as the schema language has them.
bool IsDecimal(std::string_view digits) {
    std::size_t point = digits.find('.');
    if (point == std::string_view::npos) return !digits.empty() && AreDigits(digits);
    return digits.size() > 1 && AreDigits(digits.substr(0, point)) && AreDigits(digits.substr(point + 1));
}

std::string_view WithoutSign(std::string_view text) {
    return text.substr(text.starts_with('-') || text.starts_with('+') ? 1 : 0);
}

}  // namespace

void GmlValueType::Add(std::string_view value) {
    if (isText_ || value.empty()) return;
    any_ = true;
    std::string_view digits = WithoutSign(value);
    if (number_ <= Number::Long && !digits.empty() && AreDigits(digits)) {
        std::int64_t number = 0;
        std::string_view text = value.substr(value.starts_with('+') ? 1 : 0);
        auto error = std::from_chars(text.data(), text.data() + text.size(), number).ec;
        bool isInt = number == static_cast<std::int32_t>(number);
        number_ = std::max(number_, error != std::errc() ? Number::Decimal
                                    : isInt              ? Number::Int
                                                         : Number::Long);
        return;
    }
    if (IsDecimal(digits)) {
        number_ = std::max(number_, Number::Decimal);
        return;
    }
    std::size_t exponent = digits.find_first_of("eE");
    std::string_view power =
        exponent == std::string_view::npos ? "" : WithoutSign(digits.substr(exponent + 1));
    isText_ = power.empty() || !AreDigits(power) || !IsDecimal(digits.substr(0, exponent));
    number_ = Number::Double;
}

std::string_view GmlValueType::Name() const {
    static constexpr std::string_view names[] = {"int", "long", "decimal", "double"};
    return isText_ || !any_ ? "string" : names[static_cast<std::size_t>(number_)];
}

std::set<std::string, std::less<>> GmlOwnNames() {
    return {"FeatureCollection",
            "featureMember",
            "featureMembers",
            "boundedBy",
            "geometry",
            "location",
            "Point",
            "LineString",
            "LinearRing",
            "Polygon",
            "Curve",
            "Surface",
            "Ring",
            "MultiPoint",
            "MultiCurve",
            "MultiSurface",
            "MultiLineString",
            "MultiPolygon",
            "MultiGeometry",
            "Envelope",
            "Box",
            "Solid",
            "OrientableCurve",
            "CompositeCurve",
            "pos",
            "posList",
            "coordinates",
            "segments",
            "exterior",
            "interior",
            "outerBoundaryIs",
            "innerBoundaryIs",
            "patches",
            "Circle",
            "Arc",
            "CompositeSurface",
            "Tin",
            "TriangulatedSurface"};
}

std::string GmlNamespaceOf(std::string_view documentName) {
    return "urn:vexlator:drawing:" + util::PercentEncoded(documentName, "-._~");
}

void WriteGmlSchema(platform::OutputFile& file, std::string_view targetNamespace,
                    const std::vector<GmlFeatureType>& types) {
    file.Write(schemaBegin);
    WriteXmlText(file, targetNamespace);
    file.Write("\"\n    targetNamespace=\"");
    WriteXmlText(file, targetNamespace);
    file.Write(collection);
    for (const GmlFeatureType& type : types) WriteType(file, type);
    file.Write("</xs:schema>\n");
}

}  // namespace vexlator::formats
