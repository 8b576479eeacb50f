// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/kml/KmlWriter.h"
#include "formats/xml/XmlText.h"
#include "platform/CodePages.h"
#include "support/TempFolder.h"
#include "util/Text.h"

#include <gtest/gtest.h>

namespace vexlator::formats {
namespace {

using namespace std::string_literals;
using test::TempFolder;
using util::PlanePoint;

struct Escaped {
    std::string text;
    std::uint64_t replaced;
};

Escaped Escape(std::string_view text) {
    TempFolder folder;
    platform::OutputFile file(folder / "text");
    std::uint64_t replaced = WriteXmlText(file, text);
    file.Commit();
    return {TempFolder::Read(folder / "text"), replaced};
}

TEST(XmlText, HoldsAnyText) {
    const struct {
        std::string text, escaped;
        std::uint64_t replaced;
    } cases[] = {
        {"", "", 0},
        {"a & b < c > \"d\" 'e'", "a &amp; b &lt; c &gt; &quot;d&quot; 'e'", 0},
        {"]]></description>&amp;", "]]&gt;&lt;/description&gt;&amp;amp;", 0},
        {"tab\tline\r\nend", "tab\tline&#13;\nend", 0},
        {"nul\0bell\x07"s, "nul?bell?", 2},
        {"caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80", "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80", 0},
        {"\xEF\xBF\xBD \xEF\xBF\xBE \xEF\xBF\xBF", "\xEF\xBF\xBD ? ?", 2},
        {"caf\xE9 & \x80", "caf\xC3\xA9 &amp; \xE2\x82\xAC", 0},  // Windows-1252
        {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC", 0},      // half a pair is no UTF-8
        {"cut \xE2\x82", "cut \xC3\xA2\xE2\x80\x9A", 0},
    };
    for (const auto& expected : cases) {
        Escaped found = Escape(expected.text);
        EXPECT_EQ(found.text, expected.escaped);
        EXPECT_EQ(found.replaced, expected.replaced) << expected.text;
    }
}

TEST(KmlWriter, EveryByte) {
    TempFolder folder;
    platform::OutputFile file(folder / "a.KML");
    KmlWriter writer(file, "A&B", 3);
    writer.BeginPlacemark("T1");
    writer.AddValue("T1");
    writer.AddValue("x < y");
    writer.AddImage("s_a.BMP");
    writer.EndDescription("a.jpg");
    writer.AddGeometry(KmlShape::Point, std::vector<PlanePoint>{{1.716074, 52.658008}},
                       std::vector<double>{12.3456});
    writer.EndPlacemark();
    writer.BeginPlacemark("A");
    writer.EndDescription();
    writer.AddGeometry(KmlShape::Area, std::vector<PlanePoint>{{0, 0}, {1, 0}, {1, 1}, {0, 0}},
                       std::vector<double>{0, 0, 0, 0});
    writer.EndPlacemark();
    writer.Finish();
    file.Commit();
    std::string wanted = R"(<?xml version="1.0" encoding="UTF-8"?>
<kml xmlns="http://earth.google.com/kml/2.1">
<Document>
 <name>A&amp;B</name>
 <description>Produced by Pictrove from Davik</description>
 <visibility>1</visibility>
  <Style id="transBluePoly">
  <LineStyle>
  <width>1.5</width>
  </LineStyle>
  <PolyStyle>
  <color>7dff0000</color>
  </PolyStyle>
  </Style>
 <Placemark>
  <name>T1</name>
<description><![CDATA[
<table border="0">
<tr><td>T1</td></tr>
<tr><td>x &lt; y</td></tr>
<tr><td><img src = "s_a.BMP" width="240" height="180"></img></td></tr>
</table>
<a href="a.jpg" target="_blank">Open FullSize</a>
]]></description>
  <Point>
    <coordinates>1.716074,52.658008,12.346</coordinates>
   </Point>
 </Placemark>
 <Placemark>
  <name>A</name>
<description><![CDATA[
<table border="0">
</table>
]]></description>
  <styleUrl>#transBluePoly</styleUrl>
  <Polygon>
  <outerBoundaryIs>
  <LinearRing>
    <coordinates>0.000000,0.000000,0.000
1.000000,0.000000,0.000
1.000000,1.000000,0.000
0.000000,0.000000,0.000</coordinates>
  </LinearRing>
  </outerBoundaryIs>
  </Polygon>
 </Placemark>
</Document>
</kml>
)";
    EXPECT_EQ(TempFolder::Read(folder / "a.KML"), util::ReplaceAll(wanted, "\n", "\r\n"));
}

}  // namespace
}  // namespace vexlator::formats
