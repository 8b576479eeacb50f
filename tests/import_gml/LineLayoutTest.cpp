// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import_gml/GmlOffice.h"

#include <gtest/gtest.h>
#include <random>

namespace vexlator {
namespace {

using test::GmlOffice;

std::string Feature(const std::string& lines, const std::string& type = "Road") {
    return "<gml:featureMember>\r\n<fme:" + type + " gml:id=\"id1\">\r\n" + lines + "</fme:" + type +
           ">\r\n</gml:featureMember>\r\n";
}

TEST(LineLayout, FeaturesBecomeEntities) {
    struct Case {
        const char* lines;
        const char* entities;
        std::vector<std::string> messages;
    };
    const Case cases[] = {
        {"<fme:theme>Roads</fme:theme>\r\n<gml:Point srsDimension=\"2\">\r\n<gml:pos>1.5 2.5</gml:pos>\r\n",
         "Road * 1.5,2.5 theme=Roads\n",
         {}},
        {"<gml:LineString srsDimension=\"3\">\r\n<gml:posList>1 2 3 4 5 6</gml:posList>\r\n",
         "Road 1,2 4,5\n",
         {}},
        {"<gml:LineString>\r\n<gml:posList> 1 2 3 4 5 6 </gml:posList>\r\n", "Road 1,2 3,4 5,6\n", {"2d"}},
        {"<gml:Surface srsDimension=\"2\">\r\n<gml:exterior>\r\n<gml:posList>0 0 9 0 9 9 0 "
         "0</gml:posList>\r\n"
         "<gml:interior>\r\n<gml:posList>1 1 2 1 2 2 1 1</gml:posList>\r\n",
         "Road 1,1 2,1 2,2 1,1\n",
         {"2d"}},
        {"<gml:pos>1 2</gml:pos>\r\n<fme:at>12:30</fme:at>\r\n<fme:note>a,b &amp; c&#233;</fme:note>\r\n"
         "<fme:empty></fme:empty>\r\n<ogr:other>x</ogr:other>\r\n",
         "Road * 1,2 at=12 note=a,b & c\xC3\xA9 empty=\n",
         {}},
        {"<gml:posList>1 2 x 4.5m</gml:posList>\r\n", "Road 1,2 0,4.5\n", {"2d"}},
        {"<gml:posList>1 2 3 4 5</gml:posList>\r\n", "Road 1,2 3,4\n", {"2d"}},
        {"<gml:posList>1 2 3</gml:posList>\r\n", "Road 1,2 3,0\n", {"2d"}},
        {"<gml:Surface srsDimension=\"3\">\r\n<gml:posList>1 2 3 4 5 6 7 8</gml:posList>\r\n",
         "Road 1,2 4,5 7,8\n",
         {}},
    };
    GmlOffice office;
    for (const Case& c : cases) {
        EXPECT_EQ(office.Import("<junk>\r\n" + Feature(c.lines)), c.entities) << c.lines;
        EXPECT_EQ(office.ui.messages, c.messages) << c.lines;
    }
}

TEST(LineLayout, TypesHaveLayersColoursAndSymbols) {
    GmlOffice office;
    office.folder.Write("ATP/Tree.ATP", "[26,09]\r\n'STYLE=0,TREE,255\r\n");
    std::string pos = "<gml:pos>1 2</gml:pos>\r\n";
    office.folder.Write(
        "a.gml", Feature(pos, "Tree") + Feature(pos, "Post") + Feature(pos, "Tree") + Feature("", "None"));
    office.Start("a.gml");
    std::string seen;
    office.imported.forEach([&](drawing::Entity entity) {
        seen += entity.layerName() + " " + std::to_string(entity.style().colour) + " " +
                std::to_string(entity.style().fillColour) + " " + entity.blockName() + "; ";
    });
    EXPECT_EQ(seen, "Tree 255 255 TREE; Post 3 7 default; Tree 255 255 TREE; ");
    EXPECT_NE(office.imported.findLayer("None"), nullptr);
    EXPECT_EQ(office.ui.reports.size(), 1U);  // one feature lacks coordinates
}

/// A well-formed file in the line layout.
std::string RandomFile(unsigned seed) {
    std::mt19937 random(seed);
    auto below = [&](unsigned count) { return static_cast<unsigned>(random() % count); };
    static const char* values[] = {
        "", "Roads Tracks And Paths", " a:b", "1,2", "&lt;x&gt; &amp;amp;", "caf\xC3\xA9", "&#x20AC;5"};
    auto positions = [&](unsigned count) {
        std::string text;
        for (unsigned i = 0; i < count; ++i)
            text += (i > 0 ? " " : "") + util::FormatShortest(below(1000000) / 100.0);
        return text;
    };
    auto list = [&](const std::string& around, unsigned dimension) {
        unsigned points = 2 + below(6);
        return "<gml:" + around + ">\n<gml:LinearRing>\n<gml:posList>" + positions(points * dimension) +
               "</gml:posList>\n</gml:LinearRing>\n</gml:" + around + ">\n";
    };
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<gml:FeatureCollection>\n";
    for (unsigned i = 2 + below(20); i > 0; --i) {
        unsigned dimension = 2 + below(2);
        std::string shape = i % 5 == 0 ? "Point" : below(2) ? "LineString" : "Surface";
        std::string lines;
        for (unsigned p = below(4); p > 0; --p) {
            std::string name = "p" + std::to_string(below(5));
            lines += "<fme:" + name + ">" + values[below(7)] + "</fme:" + name + ">\n";
        }
        if (below(4) == 0) lines += "<fme:group>\n<fme:inner>x</fme:inner>\n</fme:group>\n";
        if (below(4) == 0) lines += "<gml:name>not a property</gml:name>\n<!-- a comment -->\n";
        lines += "<gml:" + shape + " srsName=\"x\" srsDimension=\"" + std::to_string(dimension) + "\">\n";
        if (shape == "Point") lines += "<gml:pos>" + positions(dimension) + "</gml:pos>\n";
        if (shape == "LineString") lines += "<gml:posList>" + positions(3 * dimension) + "</gml:posList>\n";
        if (shape == "Surface") lines += list("exterior", dimension);
        for (unsigned hole = shape == "Surface" ? below(3) : 0; hole > 0; --hole)
            lines += list("interior", dimension);
        text += Feature(lines + "</gml:" + shape + ">\n", below(3) ? "Road" : "Path");
    }
    return text + "</gml:FeatureCollection>\n";
}

TEST(LineLayout, XmlReaderGivesTheSameDrawing) {
    GmlOffice byLines, byXml;
    for (unsigned seed = 1; seed <= 200; ++seed) {
        std::string text = RandomFile(seed);
        std::string entities = byLines.Import(text);
        ASSERT_NE(entities, "");
        EXPECT_EQ(byXml.Import(test::Gzip(text)), entities) << "seed " << seed << "\n" << text;
        EXPECT_EQ(byXml.ui.messages, byLines.ui.messages) << "seed " << seed;
    }
}

TEST(LineLayout, AllRingsOnRequest) {
    GmlOffice office;
    std::string text = Feature(
        "<gml:Surface srsDimension=\"3\">\n<gml:exterior>\n<gml:posList>0 0 1 9 0 1 9 9 1 0 0 "
        "1</gml:posList>\n"
        "</gml:exterior>\n<gml:interior>\n<gml:posList>1 1 1 2 1 1 2 2 1 1 1 1</gml:posList>\n"
        "</gml:interior>\n</gml:Surface>\n");
    EXPECT_EQ(office.Import(text, true), "Road 0,0 9,0 9,9 0,0\nRoad 1,1 2,1 2,2 1,1 ISHOLE=1\n");
    office.run.WriteIni("GML", "FullRings", "1");
    office.folder.Write("a.gml", text);
    office.Start("a.gml");
    EXPECT_EQ(office.Entities(), office.Import(text, true));
    EXPECT_EQ(office.Import(text), "Road 1,1 2,1 2,2 1,1\n");
}

}  // namespace
}  // namespace vexlator
