// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Json.h"
#include "support/Errors.h"

#include <gtest/gtest.h>

namespace vexlator::test {

namespace {

/// The error of loading; "" if it succeeds.
std::string ErrorOf(std::string_view json) {
    drawing::Drawing drawing;
    return test::ErrorOf([&] { Load(json, drawing); });
}

TEST(BadJson, ErrorsNamePlaceAndReason) {
    struct Case {
        std::string json;
        const char* error;
    };
    auto features = [](std::string list) {
        return "{\"type\":\"FeatureCollection\",\"features\":[" + list + "]}";
    };
    auto vdf = [&](std::string members) { return features("{\"vdf\":{}},{\"vdf\":{" + members + "}}"); };
    auto geometry = [&](std::string value) { return features("{\"geometry\":" + value + "}"); };
    auto drawing = [](std::string members) {
        return "{\"type\":\"FeatureCollection\",\"drawing\":{" + members + "},\"features\":[]}";
    };
    const std::string start = "{\"type\":\"FeatureCollection\",";
    const Case cases[] = {
        {"[]", "byte 0: a JSON object is expected here"},
        {"{}", "the FeatureCollection has no member \"features\""},
        {start + "\"features\":[{\"id\":\"1}]}", "byte 46: the text ends inside the string that begins here"},
        {start + "\"features\":[]} x", "byte 43: something follows the end of the JSON text"},
        {"{\"features\":[],\"features\":[]}", "byte 26: a second member \"features\""},
        {"{type:1}", "byte 1: a member's name in double quotes is expected here"},
        {"{\"type\":\"Topology\",\"features\":[]}",
         "feature 1 at byte 0: geometry.type: \"Topology\" is not a type of geometry"},
        {features("{}{}"), "byte 42: a comma or the closing bracket is missing"},
        {features("{},7"), "feature 2 at byte 43: is not an object"},
        {features("{\"id\":}"),
         "feature 1 at byte 40: the JSON is broken: a comma, colon, quote or bracket is missing or too many"},
        {features("{\"id\":\"\xFF\"}"), "feature 1 at byte 40: the text is not UTF-8"},
        {features("{\"type\":\"Point\"}"), "feature 1 at byte 40: type: is not \"Feature\""},
        {vdf("\"colour\":-1"),
         "feature 2 at byte 51: vdf.colour: is not a whole number from 0 to 4294967295"},
        {vdf("\"lineWeight\":2147483648"),
         "feature 2 at byte 51: vdf.lineWeight: is not a whole number from -2147483648 to 2147483647"},
        {vdf("\"position\":[1]"), "feature 2 at byte 51: vdf.position: is not [x, y] or [x, y, z]"},
        {vdf("\"vertices\":[[1,2],[1,null]]"),
         "feature 2 at byte 51: vdf.vertices: position 2: is not a number"},
        {vdf("\"xproperties\":[[\"a\",\"b\"],[\"a\"]]"),
         "feature 2 at byte 51: vdf.xproperties: number 2: is not [name, value]"},
        {geometry("{\"type\":\"Polygon\",\"coordinates\":[[1,2]]}"),
         "feature 1 at byte 40: geometry.coordinates: position 1: is not an array"},
        {geometry("{\"type\":\"GeometryCollection\",\"geometries\":[7]}"),
         "feature 1 at byte 40: geometry.geometries: is not an object"},
        {drawing("\"layers\":[{\"frozen\":true}]"), "byte 38: drawing.layers: holds a layer without a name"},
        {drawing("\"properties\":[[\"a\"]]"),
         "byte 38: drawing.properties: holds something other than [name, value]"},
    };
    for (const Case& c : cases) EXPECT_EQ(ErrorOf(c.json), c.error) << c.json;
}

TEST(BadJson, EveryCutIsAnError) {
    std::string document = Document(
        R"({"type":"Feature","id":"1","geometry":null,"properties":{"a":"\"\\"},"vdf":{"vertices":[[1,2,3]],"xproperties":[["a","\"\\"]]}})");
    document.erase(document.find_last_of('}') + 1);
    EXPECT_EQ(ErrorOf(document), "");
    for (std::size_t size = 0; size < document.size(); ++size)
        EXPECT_NE(ErrorOf(document.substr(0, size)), "") << size;
}

TEST(BadJson, DeepNestingEndsInAnError) {
    std::string deep(100000, '['), close(100000, ']');
    EXPECT_EQ(ErrorOf("{\"features\":[{\"x\":" + deep + close + "}]}"),
              "feature 1 at byte 13: arrays and objects are nested too deep");
    std::string collection;
    for (int i = 0; i < 50000; ++i) collection += "{\"type\":\"GeometryCollection\",\"geometries\":[";
    EXPECT_NE(ErrorOf(collection), "");
}

}  // namespace

}  // namespace vexlator::test
