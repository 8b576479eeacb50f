// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "Json.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vexlator::test {

namespace {

constexpr std::string_view common =
    R"("layer":"0","colour":7,"lineType":"","lineWeight":0,"label":"","hyperlink":"",)";

std::string Feature(std::string_view id, std::string_view geometry, std::string_view vdf,
                    std::string_view properties = "", std::string_view xproperties = "") {
    std::string json = "\n  {\"type\":\"Feature\",\"id\":\"" + std::string(id) + "\",\"geometry\":";
    json.append(geometry).append(",\"properties\":{").append(properties).append("},\"vdf\":{").append(vdf);
    return json.append("\"xproperties\":[").append(xproperties).append("]}}");
}

/// `kind` is replaced by the common members at their defaults.
std::string Plain(std::string kind, std::string_view own) {
    return "\"kind\":\"" + kind + "\"," + std::string(common) + std::string(own) + ",";
}

/// A symbol with contents.
std::string Block(std::string_view name, std::string_view blocks, std::string_view entities) {
    std::string json = "\n  {\"name\":\"" + std::string(name) + "\",\"properties\":[],";
    json += "\n            \"layers\":[{\"name\":\"0\",\"frozen\":false,\"colour\":7}],";
    json.append("\n            \"activeLayer\":\"0\",\"blocks\":[").append(blocks).append("],\"entities\":[");
    return json.append(entities).append("]}");
}

TEST(RoundTrip, EveryKindWithEveryMember) {
    std::string features =
        Feature("1A", R"({"type":"Point","coordinates":[1.5,2.25,3]})",
                Plain("VDPOINT", R"("position":[1.5,2.25,3])")) +
        "," +
        Feature("1", R"({"type":"Point","coordinates":[-1,0.1,0]})",
                Plain("VDINSERT", R"("position":[-1,0.1,0],"block":"tree","scale":[2,0.5],"rotation":1.5)")) +
        "," +
        Feature(
            "FFFF", R"({"type":"LineString","coordinates":[[0,0,0],[1,1,5]]})",
            R"("kind":"VDPOLYLINE","layer":"FENCE","colour":16711680,"lineType":"DASHED","lineWeight":-30,)"
            R"("label":"F1","hyperlink":"a.JPG","closed":false,"filled":true,"fillColour":3,"outlineColour":4294967295,)"
            R"("vertices":[[0,0,0],[1,1,5]],)",
            R"("A":"1","B":"x y")", R"(["A","1"],["B","x y",1040],["A","2"])") +
        "," +
        Feature("20", R"({"type":"Point","coordinates":[0,0,0]})",
                Plain("VDCIRCLE", R"("position":[0,0,0],"radius":12.5)")) +
        "," +
        Feature("21", R"({"type":"Point","coordinates":[0,0,0]})",
                Plain("VDARC", R"("position":[0,0,0],"radius":1,"startAngle":0.5,"endAngle":-0.25)")) +
        "," +
        Feature(
            "22", R"({"type":"Point","coordinates":[7,8,9]})",
            Plain(
                "VDTEXT",
                R"("position":[7,8,9],"rotation":0.1,"text":"Hello","height":2.5,"style":"ROMANS","alignment":-2)"),
            R"("N":"v")", R"(["N","v"])") +
        "," +
        Feature("23", R"({"type":"LineString","coordinates":[[0,0,0],[10,0,0]]})",
                Plain("VDLINE", R"("vertices":[[0,0,0],[10,0,0]])")) +
        "," + Feature("24", "null", Plain("VDHATCH", R"("vertices":[[1,2,3]])"), R"("":"")", R"(["",""])");
    std::string document =
        Document(features, ",\n            {\"name\":\"FENCE\",\"frozen\":true,\"colour\":255}",
                 R"(["Source","C:\\Jobs\\a.JOB"],["Source","again"])", "FENCE",
                 R"("default",)" + Block("tree", R"("plain",)" + Block("deep", "", ""),
                                         Feature("7", R"({"type":"Point","coordinates":[1,1,0]})",
                                                 Plain("VDCIRCLE", R"("position":[1,1,0],"radius":2)"))));
    EXPECT_EQ(LoadAndDump(document), document);
}

TEST(RoundTrip, MembersLeftOutHaveTheirDefaults) {
    const std::string origin = R"({"type":"Point","coordinates":[0,0,0]})",
                      point = Feature("1", origin, Plain("VDPOINT", R"("position":[0,0,0])")),
                      insert =
                          Plain("VDINSERT", R"("position":[0,0,0],"block":"","scale":[1,1],"rotation":0)");
    const std::pair<std::string, std::string> cases[] = {
        {R"({})", point},
        {R"({"kind":"VDINSERT","layer":null})", Feature("1", origin, insert)},
        // Members without a meaning for the kind, repeated and unknown ones.
        {R"({"kind":"VDPOINT","radius":5,"text":"x","colour":1,"colour":7,"more":[{}]})", point},
    };
    for (const auto& [vdf, feature] : cases)
        EXPECT_EQ(LoadAndDump(R"({"type":"FeatureCollection","features":[{"vdf":)" + vdf + "}]}"),
                  Document(feature));
}

TEST(RoundTrip, ClosedPolylinesAreRings) {
    const std::string polygon = R"({"type":"Polygon","coordinates":[[[0,0,0],[1,0,0],[1,1,0],[0,0,0]]]})";
    const std::pair<std::string, std::string> cases[] = {
        {"[1,2,3]", "null"},
        {"[0,0,0],[1,0,0],[0,0,0]", R"({"type":"LineString","coordinates":[[0,0,0],[1,0,0],[0,0,0]]})"},
        {"[0,0,0],[1,0,0],[1,1,0]", polygon},
        {"[0,0,0],[1,0,0],[1,1,0],[0,0,0]", polygon},
    };
    for (const auto& [vertices, geometry] : cases) {
        std::string own = R"("closed":true,"filled":false,"fillColour":7,"outlineColour":7,"vertices":[)";
        std::string document = Document(Feature("1", geometry, Plain("VDPOLYLINE", own + vertices + "]")));
        EXPECT_EQ(LoadAndDump(document), document);
    }
}

TEST(RoundTrip, TextsComeBackByteForByte) {
    std::string all;
    for (int c = 0; c < 0x80; ++c) all += static_cast<char>(c);
    const std::string texts[] = {all,
                                 "\"\\/",
                                 "gr\xC3\xB6\xC3\x9F\x65",
                                 "\xF0\x9F\x97\xBA map",
                                 "\xEF\xBF\xBF",
                                 std::string(65536, '"'),
                                 "1234567\x1F",
                                 "1234567\x7F"};
    for (const std::string& text : texts) {
        drawing::Drawing before, after;
        before.addLayer("L" + text);
        before.properties().emplace_back(text, text);
        drawing::Entity entity = before.addText({1, 2, 0}, text, 1, 0);
        entity.setLabel(text);
        entity.setHyperlink(text);
        entity.xproperties().add(text, text);
        Load(Dump(before), after);
        drawing::Entity loaded = after.entityAt(0);
        drawing::XProperties attributes = loaded.xproperties();
        EXPECT_TRUE(after.findLayer("L" + text));
        EXPECT_EQ(after.properties(), before.properties());
        for (std::string_view found : {loaded.text(), loaded.label(), loaded.hyperlink(), attributes.name(0),
                                       attributes.item(0).value()})
            EXPECT_EQ(found, text);
    }
}

TEST(RoundTrip, BytesThatAreNotUtf8AreReadAsWindows1252) {
    drawing::Drawing drawing;
    drawing::Entity entity = drawing.addPoint({});
    entity.xproperties().add("caf\xE9", "\x80 5 \"");
    entity.xproperties().add("caf\xC3\xA9", "the same name");
    std::string json = Dump(drawing);
    EXPECT_NE(json.find("\"properties\":{\"caf\xC3\xA9\":\"\xE2\x82\xAC 5 \\\"\"}"), json.npos) << json;
    EXPECT_EQ(LoadAndDump(json), json);
}

TEST(RoundTrip, NumbersComeBackBitForBit) {
    using Limits = std::numeric_limits<double>;
    for (double value :
         {0.0, -0.0, 0.1, -1.0 / 3, 400000.123456789, 999999999999999.0, 1e15, 123456789012345678.0, 9.3e18,
          -1.8e19, 123456789012345680000.0, 1e22, Limits::max(), Limits::min(), Limits::denorm_min()}) {
        drawing::Drawing before, after;
        before.addPoint({value, value, 1});
        Load(Dump(before), after);
        double x = after.entityAt(0).position().x;
        EXPECT_EQ(x, value);
        EXPECT_EQ(std::signbit(x), std::signbit(value));
    }
}

TEST(RoundTrip, NumbersThatAreNotFiniteGiveValidJson) {
    drawing::Drawing drawing;
    drawing.addPoint({1, std::nan(""), 0});
    drawing.addCircle({1, 1, 0}, std::numeric_limits<double>::infinity());
    std::string json = Dump(drawing);
    EXPECT_NE(json.find(R"("id":"1","geometry":null)"), json.npos) << json;
    EXPECT_NE(json.find(R"("position":[1,null,0])"), json.npos) << json;
    EXPECT_NE(json.find(R"("radius":null)"), json.npos) << json;
}

TEST(RoundTrip, IdsAreKeptWhenTheyAreFreeHandles) {
    drawing::Drawing drawing;
    Load(R"({"type":"FeatureCollection","features":[
        {"id":"ff","vdf":{}},{"id":"FF","vdf":{}},{"id":"not hexadecimal","vdf":{}},{"id":"3","vdf":{}},{"id":7,"vdf":{}},
        {"id":"0","vdf":{}},{"id":"FFFFFFFFFFFFFFFFFFFF","vdf":{}}]})",
         drawing);
    std::vector<std::string> handles;
    drawing.forEach([&](drawing::Entity entity) { handles.push_back(entity.handle()); });
    EXPECT_EQ(handles, (std::vector<std::string>{"FF", "100", "101", "3", "102", "103", "104"}));
}

/// Symbols of other programs can have any contents.
TEST(RoundTrip, ABlockThatIsNoDrawingKeepsItsName) {
    drawing::Drawing drawing;
    drawing.addBlock({"odd", "no drawing"});
    std::string json, notes;
    vdfjson::DrawingToJson(
        drawing, [&](std::string_view piece) { json += piece; },
        [&](std::string_view note) { notes += note; });
    EXPECT_EQ(json, Document("", "", "", "0", R"("odd")"));
    EXPECT_TRUE(notes.starts_with("block \"odd\" is written by its name only: ")) << notes;
}

}  // namespace

}  // namespace vexlator::test
