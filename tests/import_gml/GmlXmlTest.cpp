// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/xml/ByteBlocks.h"
#include "formats/xml/XmlParser.h"
#include "import_gml/GmlOffice.h"
#include "platform/Errors.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

namespace vexlator {
namespace {

using platform::ReadError;
using test::GmlOffice;

std::string Collection(const std::string& members) {
    return "<?xml version=\"1.0\"?><c:FeatureCollection xmlns:c=\"urn:c\" "
           "xmlns:gml=\"http://www.opengis.net/gml\">\n  " +
           members + "</c:FeatureCollection>";
}

std::string Member(const std::string& content) {
    return Collection("<gml:featureMember> <a:F gml:id=\"i\">" + content + "</a:F> </gml:featureMember>");
}

/// An element of GML.
std::string Gml(const std::string& name, const std::string& content, const std::string& attributes = "") {
    return "<gml:" + name + attributes + ">" + content + "</gml:" + name + ">";
}
std::string List(const std::string& values) {
    return Gml("posList", values);
}
std::string Line(const std::string& values, const std::string& attributes = "") {
    return Gml("LineString", List(values), attributes);
}
std::string Ring(const std::string& kind, const std::string& values) {
    return Gml(kind, Gml("LinearRing", List(values)));
}

const std::string point = Gml("Point", Gml("pos", "1 2"));

using Case = std::pair<std::string, const char*>;
void ExpectEntities(const std::string& text, const char* entities) {
    GmlOffice office;
    EXPECT_EQ(office.Import(text), entities) << text;
    EXPECT_TRUE(office.ui.messages.empty());
}

TEST(GmlXml, GeometryOfEveryLayout) {
    const std::string square = Ring("exterior", "0 0 9 0 9 9 0 0"),
                      hole = Ring("interior", "1 1 2 1 2 2 1 1"), polygon = Gml("Polygon", square),
                      three = " srsDimension='3'",
                      segments = Gml("segments", Gml("LineStringSegment", List("1 2 3 4")) +
                                                     Gml("LineStringSegment", List("3 4 5 6"))),
                      box = Gml("boundedBy", Gml("Envelope", Gml("pos", "7 7")));
    const Case cases[] = {
        {Gml("Point", Gml("coord", Gml("X", "1") + "\n" + Gml("Y", "2") + Gml("Z", "3"))), "F * 1,2\n"},
        {Gml("LineString", Gml("coordinates", "1,5;2|+3;4e1", " decimal=',' cs=';' ts='|'")),
         "F 1.5,2 3,40\n"},
        {Gml("LineString", Gml("pos", "1 2 9") + Gml("pos", "3 4 9")), "F 1,2 3,4\n"},
        {Gml("LineString", Gml("posList", "1 2 9 3<!-- c --> 4<![CDATA[ 9]]>", three)), "F 1,2 3,4\n"},
        {"<Point xmlns='http://www.opengis.net/gml/3.2'><pos>1 2</pos></Point>", "F * 1,2\n"},
        {Gml("MultiSurface",
             Gml("surfaceMember", Gml("Polygon", square + hole + hole)) +
                 Gml("surfaceMember", Gml("Surface", Gml("patches", Gml("PolygonPatch", square))))),
         "F 0,0 9,0 9,9 0,0 MPOLY=1\nF 1,1 2,1 2,2 1,1 MPOLY=1 ISHOLE=1\nF 1,1 2,1 2,2 1,1 MPOLY=1 ISHOLE=1\n"
         "F 0,0 9,0 9,9 0,0 MPOLY=2\n"},
        {Gml("Curve", segments), "F 1,2 3,4 5,6\n"},
        {Gml("OrientableCurve", Gml("Curve", segments), " orientation='-'"), "F 5,6 3,4 1,2\n"},
        {Gml("Polygon",
             Gml("exterior", Gml("Ring", Gml("curveMember", Line("0 0 9 0 9 9")) +
                                             Gml("curveMember", Gml("OrientableCurve", Line("0 0 0 9 9 9"),
                                                                    " orientation='-'"))))),
         "F 0,0 9,0 9,9 0,9 0,0\n"},
        {Gml("LineString", Gml("coordinates", "1 2, 3 4")), "F 1,2 3,4\n"},
        {Line("1 2 9 3 4 9", " srsName='EPSG:7405'"), "F 1,2 3,4\n"},
        {Gml("boundedBy", Gml("Envelope", "", " srsName='EPSG:27700' srsDimension='3'")) +
             Line("1 2 9 3 4 9", " srsName='EPSG:27700'"),
         "F 1,2 3,4\n"},
        {Gml("MultiCurve", Gml("curveMember", Line("1 2 3 4", " srsName='EPSG:27700'")),
             " srsName='EPSG:7405' srsDimension='3'"),
         "F 1,2 3,4\n"},
        {"<a:ElevatedPoint srsDimension='3'>" + Gml("pos", "1 2 3") +
             "<a:elevation>8</a:elevation></a:ElevatedPoint>",
         "F * 1,2 elevation=8\n"},
        {"<a:ElevatedCurve>" + segments + "</a:ElevatedCurve>", "F 1,2 3,4 5,6\n"},
        {"<a:boundedBy><a:Wall>" + Gml("MultiSurface", Gml("surfaceMember", polygon)) +
             "</a:Wall></a:boundedBy>",
         "F 0,0 9,0 9,9 0,0\n"},
        {Gml("boundedBy", Gml("Box", Gml("coordinates", "0,0 1,1"))) + "<a:extent>" +
             Gml("Polygon", box + square) + "</a:extent>",
         "F 0,0 9,0 9,9 0,0\n"},
    };
    for (const auto& [geometry, entities] : cases)
        ExpectEntities(Member("<a:geometry>" + geometry + "</a:geometry>"), entities);
}

TEST(GmlXml, ElementsWithoutChildrenAreProperties) {
    const Case cases[] = {
        {"<a:name>\n  High St &amp; 2:30 </a:name><gml:description>d</gml:description><a:at>" + point +
             "</a:at>",
         "F * 1,2 name=High St & 2:30 description=d\n"},
        {"<a:history><a:date>2001</a:date><a:why>New</a:why></a:history><a:Point>x</a:Point>" + point +
             "<a:empty/><a:kind xlink:href='#k'/>",
         "F * 1,2 date=2001 why=New Point=x empty= kind=#k\n"},
        {"<a:t>1</a:t>" + point + "<a:t>2</a:t>", "F * 1,2 t=1 t=2\n"},
    };
    for (const auto& [content, entities] : cases) ExpectEntities(Member(content), entities);
}

TEST(GmlXml, FeaturesInAndOutsideOfMembers) {
    const std::string gml = " xmlns:gml='http://www.opengis.net/gml'", f = "<a:F>" + point + "</a:F>",
                      road = "<Road><n>x</n><at>" + point + "</at></Road>";
    const Case cases[] = {
        {Collection(Gml("featureMembers", f + f)), "F * 1,2\nF * 1,2\n"},
        {Collection("<wfs:member><wfs:FeatureCollection><wfs:member>" + f +
                    "</wfs:member></wfs:FeatureCollection></wfs:member><member>" + f + "</member>"),
         "F * 1,2\nF * 1,2\n"},
        {Collection(Gml("boundedBy", Gml("Envelope", ""))), ""},
        {Collection("<name>c</name>" + road + "<member>" + road + "</member>" + road),
         "Road * 1,2 n=x\nRoad * 1,2 n=x\nRoad * 1,2 n=x\n"},
        {Collection("<extent>" + point + "</extent><F>" + point + "</F>"), "F * 1,2\n"},
        {"<d" + gml + "><list><Road gml:id='1'><in><at>" + point + "</at></in><n>y</n></Road></list></d>",
         "Road * 1,2 n=y\n"},
        {"<Road" + gml + "><n>x</n><at>" + point + "</at><m>y</m></Road>", "Road * 1,2 n=x m=y\n"},
        {"<a:At" + gml + "><gml:pos>1 2</gml:pos><z>3</z></a:At>", "At * 1,2 z=3\n"},
        {"<Point xmlns='http://www.opengis.net/gml'><pos>1 2</pos></Point>", "Point * 1,2\n"},
        {Collection("<m:member>" + point + "</m:member>"), "Point * 1,2\n"},
        {"<Road" + gml + "><n>x</n></Road>", ""},
    };
    for (const auto& [text, entities] : cases) ExpectEntities(text, entities);
}

TEST(GmlXml, Encodings) {
    auto document = [](const std::string& declaration, const std::string& value) {
        return declaration + "<c><member><F><n>" + value +
               "</n><gml:Point><gml:pos>1 2</gml:pos></gml:Point></F></member></c>";
    };
    const std::string expected = "F * 1,2 n=\xC3\xA9\xE2\x82\xAC\n";
    std::string wide = "\xFF\xFE";
    for (char c : document("", "##")) wide += std::string(c == '#' ? "\xE9" : std::string(1, c)) + '\0';
    GmlOffice office;
    for (const std::string& text : {
             document("\xEF\xBB\xBF", "\xC3\xA9\xE2\x82\xAC"),
             document("", "\xC3\xA9&#8364;"),
             document("", "\xE9\x80"),
             document("<?xml version='1.0' encoding='windows-1252'?>", "\xE9\x80"),
             document("<?xml version='1.0' encoding = 'ISO-8859-15'?>", "\xE9\xA4"),
             document("<?xml version='1.0' encoding='GB18030'?>", "\xA8\xA6\xA2\xE3"),
         }) {
        EXPECT_EQ(office.Import(text), expected) << text;
    }
    EXPECT_EQ(office.Import(wide), "F * 1,2 n=\xC3\xA9\xC3\xA9\n");
}

/// Place and reason of a refused file, or of a left-out feature; "" if there is none.
std::string Refusal(GmlOffice& office, const std::string& bytes) {
    try {
        office.Import(bytes);
        return office.damage;
    } catch (const ReadError& error) {
        EXPECT_NE(error.Place(), "");
        return error.Place() + ": " + error.Reason();
    }
}

TEST(GmlXml, WhatIsRefused) {
    auto line = [](const std::string& points) { return Member(Gml("LineString", "\n" + List(points))); };
    const std::string good = Member(point), large(2 << 20, 'x');
    std::string deep, names;
    for (int i = 0; i < 300; ++i) deep += "<a>";
    for (int i = 0; i < 100000; ++i) names += "<name" + std::to_string(i) + "/>";
    std::string packed = test::Gzip(good), damaged = packed;
    damaged[packed.size() - 6] = static_cast<char>(damaged[packed.size() - 6] ^ 1);
    const std::pair<std::string, std::string> cases[] = {
        {"<!DOCTYPE c [<!ENTITY x SYSTEM 'file:///etc/passwd'>]><c>&x;</c>", "declares an entity"},
        {"<!DOCTYPE c [<!ENTITY % x 'y'>]><c/>", "declares an entity"},
        {"<!DOCTYPE c [<!ENTITY x SYSTEM 'y' NDATA z>]><c/>", "declares an entity"},
        {"<!DOCTYPE c [<!ATTLIST c a (b|c) 'b'>]><c/>", "declares a value for attributes"},
        {"<!DOCTYPE c SYSTEM 'http://example.org/c.dtd'><c/>", "external document type"},
        {"<c>\n&nbsp;</c>", "line 2: Entity 'nbsp' not defined"},
        {deep, "nested more than 256"},
        {good.substr(0, good.size() - 5), "line 2: "},
        {"no GML at all", "Start tag expected"},
        {good + "more", "Extra content"},
        {good + good, "line 2: "},
        {good + std::string("\n\0", 2), "continues after the end"},
        {"<c a='1' a='2'/>", "Attribute a redefined"},
        {"<c>]]></c>", "']]>' not allowed"},
        {"<?xml version='1.0' encoding='UTF-8'?><c>\xE9</c>", "not proper UTF-8"},
        {"<?xml version='1.0' encoding='windows-1252'?><c>\x81</c>", "conversion failed"},
        {line("1 2 3 4x"), "line 3: \"4x\" is not a coordinate"},
        {line("1 2 3 nan"), "\"nan\" is not a coordinate"},
        {line("1 2 3"), "line 3: the last of 2 points lacks values"},
        {line(std::string(5000, '1')), "more than 4,096 characters"},
        {Member(Gml("Point", Gml("coordinates", "1"))), "has only one value"},
        {Member(Line("1 2", " srsDimension='1000000'")), "srsDimension"},
        {"<c a='" + large + "'/>", "a tag or comments of more than 64 KB"},
        {"<c><!--" + large + "--></c>", "more than 1 MB"},
        {"<c><![CDATA[" + large + "]]></c>", "more than 1 MB"},
        {"<c><?p " + large + "?></c>", "more than 1 MB"},
        {"<c/>" + std::string(large.size(), '\n'), "more than 1 MB"},
        {"<c>" + names + "</c>", "too many different names"},
        {"<?xml version='1.0' encoding='x-none'?><c/>", "Unsupported encoding x-none"},
        {packed.substr(0, packed.size() - 9), "ends too early"},
        {damaged, "damaged"},
        {test::Gzip("<c>") + test::Gzip(std::string(200 << 20, ' ')), "1,000 times its size"},
        {Member("<n>" + std::string(1 << 20, 'x') + "</n><gml:MultiSurface>" +
                [] {
                    std::string surfaces;
                    for (int i = 0; i < 500; ++i) surfaces += Gml("Polygon", Ring("exterior", "1 2"));
                    return surfaces;
                }() +
                "</gml:MultiSurface>"),
         "too many surfaces"},
    };
    GmlOffice office;
    testing::internal::CaptureStderr();
    for (const auto& [bytes, reason] : cases) {
        std::string refusal = Refusal(office, bytes);
        EXPECT_NE(refusal.find(reason), std::string::npos) << refusal << " for " << bytes.substr(0, 200);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(GmlXml, WhatIsWellFormed) {
    const Case cases[] = {
        {"<n>a\r\nb\rc<![CDATA[<&\r\n]]>]]&lt;&gt;&amp;&quot;&apos;&#xE9;<?p q?><!-- c --></n>",
         " n=a\nb\nc<&\n]]<>&\"'\xC3\xA9"},
        {"<n xlink:href='a&amp;&#98;\r\nc'/>", " n=a&b c"},
        {"<n>" + std::string(5 << 20, ' ') + "x</n>", " n=x"},
        {"<none:n xml:lang='" + std::string(60000, '?') + "'>x</none:n>", " n=x"},
        {"<n>x<!--" + std::string(1000000, 'c') + "--></n>", " n=x"},
    };
    GmlOffice office;
    for (const auto& [property, entity] : cases)
        EXPECT_EQ(office.Import(Member(property + point)), "F * 1,2" + std::string(entity) + "\n");
    EXPECT_EQ(office.Import("<?p q?><!DOCTYPE c [<!ELEMENT c ANY><!ATTLIST c k CDATA #IMPLIED>]><!-- c -->"
                            "<c><gml:featureMember><F>" +
                            point + "</F></gml:featureMember></c>\n<!-- c -->"),
              "F * 1,2\n");
}

/// Blocks of a document with one long text.
struct LongText : formats::ByteBlocks {
    std::string_view Next() override {
        if (count == 0) return std::exchange(end, "");
        return --count == most - 1 ? "<c>" : std::string_view(block);
    }
    std::size_t Consumed() const override { return 0; }

    static constexpr std::size_t most = 1000;
    std::size_t count = most;
    std::string block = std::string(blockSize, 'x');
    std::string_view end = "</c>";
};

TEST(GmlXml, LongTextComesInPieces) {
    struct : formats::XmlHandler {
        void StartElement(std::string_view, formats::XmlAttributes) override {}
        void EndElement() override {}
        void Text(std::string_view text) override {
            longest = std::max(longest, text.size());
            size += text.size();
        }
        std::size_t longest = 0, size = 0;
    } handler;
    LongText text;
    formats::ParseXml(text, handler);
    EXPECT_EQ(handler.size, (LongText::most - 1) * formats::ByteBlocks::blockSize);
    EXPECT_LE(handler.longest, formats::ByteBlocks::blockSize);
}

TEST(GmlXml, TextMayBeCutAnywhere) {
    // Longer than a block, so that blocks end inside numbers and names.
    std::string members, entities;
    for (int i = 0; i < 9000; ++i) {
        std::string n = std::to_string(i);
        members += "<m:member><a:F><a:n>v" + n + "</a:n><gml:LineString><gml:posList>" + n + ".25 1 " + n +
                   " 7</gml:posList></gml:LineString></a:F></m:member>";
        entities += "F " + n + ".25,1 " + n + ",7 n=v" + n + "\n";
    }
    ASSERT_GT(members.size(), 3 * formats::ByteBlocks::blockSize);
    GmlOffice office;
    EXPECT_EQ(office.Import(Collection(members)), entities);
}

TEST(GmlXml, DamagedBytesGiveAnErrorOrADrawing) {
    const std::string text =
        Member("<a:n k='v'>&amp;</a:n>" + Gml("Polygon", Ring("exterior", "0 0 9 0 0 0")));
    const std::string packed = test::Gzip(text);
    GmlOffice office;
    for (std::size_t i = 0; i < packed.size(); ++i) {
        std::string flipped = packed;
        flipped[i] = static_cast<char>(flipped[i] ^ 0x11);
        for (const std::string& bytes : {flipped, packed.substr(0, i + 1)}) Refusal(office, bytes);
    }
    for (std::size_t i = 1; i < text.size(); ++i) EXPECT_NE(Refusal(office, text.substr(0, i)), "") << i;
}

}  // namespace
}  // namespace vexlator
