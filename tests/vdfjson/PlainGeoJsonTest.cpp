// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Json.h"

#include <gtest/gtest.h>
#include <vector>

namespace vexlator::test {

namespace {

/// "VDPOLYLINE closed 1,2 3,4" for each entity of the drawing.
std::vector<std::string> Entities(drawing::Drawing& drawing) {
    std::vector<std::string> entities;
    drawing.forEach([&](drawing::Entity entity) {
        std::string text(entity.kind());
        if (entity.isClosed()) text += " closed";
        for (std::size_t i = 0; i < entity.vertexCount(); ++i) {
            drawing::Point p = entity.vertex(i);
            text += " " + std::to_string(static_cast<int>(p.x)) + "," + std::to_string(static_cast<int>(p.y));
            if (p.z != 0) text += "," + std::to_string(static_cast<int>(p.z));
        }
        entities.push_back(text);
    });
    return entities;
}

TEST(PlainGeoJson, GeometriesBecomeEntities) {
    struct Case {
        const char* geometry;
        std::vector<std::string> entities;
    };
    const Case cases[] = {
        {R"({"type":"Point","coordinates":[1,2]})", {"VDPOINT 1,2"}},
        {R"({"coordinates":[1,2,3,99],"type":"Point"})", {"VDPOINT 1,2,3"}},
        {R"({"type":"LineString","coordinates":[[1,2],[3,4,5]]})", {"VDPOLYLINE 1,2 3,4,5"}},
        {R"({"type":"Polygon","coordinates":[[[0,0],[9,0],[9,9],[0,0]],[[1,1],[2,2],[2,1],[1,1]]]})",
         {"VDPOLYLINE closed 0,0 9,0 9,9 0,0", "VDPOLYLINE closed 1,1 2,2 2,1 1,1"}},
        {R"({"type":"MultiPolygon","coordinates":[[[[0,0],[9,0],[9,9],[0,0]]],[[[1,1],[2,2],[2,1],[1,1]]]]})",
         {"VDPOLYLINE closed 0,0 9,0 9,9 0,0", "VDPOLYLINE closed 1,1 2,2 2,1 1,1"}},
        {R"({"type":"GeometryCollection","geometries":[{"type":"Point","coordinates":[1,2]},
             {"type":"GeometryCollection","geometries":[{"type":"LineString","coordinates":[[1,2],[3,4]]}]}]})",
         {"VDPOINT 1,2", "VDPOLYLINE 1,2 3,4"}},
        {"null", {"VDPOLYLINE"}},
        {R"({"type":"MultiPolygon","coordinates":[]})", {"VDPOLYLINE"}},
    };
    for (const Case& c : cases) {
        std::string feature =
            std::string(R"({"type":"Feature","properties":{"A":"1","B":2},"geometry":)") + c.geometry + "}";
        drawing::Drawing drawing;
        Load(R"({"type":"FeatureCollection","features":[)" + feature + "]}", drawing);
        EXPECT_EQ(Entities(drawing), c.entities) << c.geometry;
        drawing.forEach([&](drawing::Entity entity) {
            ASSERT_EQ(entity.xproperties().count(), 2U) << c.geometry;
            EXPECT_EQ(entity.xproperties().item(1).value(), "2");
            EXPECT_EQ(entity.layerName(), "FILE");
        });
    }
}

TEST(PlainGeoJson, PropertiesBecomeTextInOrder) {
    drawing::Drawing drawing;
    Load(
        R"({"type":"Feature","geometry":null,"properties":{"text":"a\u00e9","whole":-12,"large":18446744073709551615,
        "real":1.50,"tiny":1e-7,"yes":true,"no":false,"none":null,"object":{"a":[1,"x"]},"list":[ 1 , 2 ],"text":"again"}})",
        drawing);
    std::vector<std::pair<std::string, std::string>> found,
        expected = {{"text", "a\xC3\xA9"}, {"whole", "-12"},  {"large", "18446744073709551615"},
                    {"real", "1.5"},       {"tiny", "1e-07"}, {"yes", "true"},
                    {"no", "false"},       {"none", ""},      {"object", R"({"a":[1,"x"]})"},
                    {"list", "[1,2]"},     {"text", "again"}};
    drawing::XProperties properties = drawing.entityAt(0).xproperties();
    for (std::size_t i = 0; i < properties.count(); ++i)
        found.emplace_back(properties.name(i), properties.item(i).value());
    EXPECT_EQ(found, expected);
}

/// Exports use values by their position.
TEST(PlainGeoJson, FeaturesOfALayerHaveTheSameNames) {
    drawing::Drawing drawing;
    Load(
        R"({"type":"FeatureCollection","features":[{"properties":{"CREW":"c"}},{"properties":{"REF":1,"CREW":"d"}},
        {"properties":null},{"properties":{"layer":"file","REF":2,"REF":3}},{"properties":{"layer":"B","REF":4}}]})",
        drawing);
    std::vector<std::string> found;
    drawing.forEach([&](drawing::Entity entity) {
        std::string text;
        drawing::XProperties properties = entity.xproperties();
        for (std::size_t i = 0; i < properties.count(); ++i)
            text.append(properties.name(i)).append("=").append(properties.item(i).value()).append(" ");
        found.push_back(text);
    });
    EXPECT_EQ(found, (std::vector<std::string>{"CREW=c REF= layer= REF= ", "CREW=d REF=1 layer= REF= ",
                                               "CREW= REF= layer= REF= ", "CREW= REF=2 layer=file REF=3 ",
                                               "layer=B REF=4 "}));
}

}  // namespace

}  // namespace vexlator::test
