// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/styling/AnnotationText.h"
#include "background/styling/DrawingTools.h"
#include "background/styling/LayerStyles.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace vexlator::background {

std::ostream& operator<<(std::ostream& out, const LayerStyle& style) {
    for (const ClassBytes& bytes : {style.points, style.lines, style.areas})
        out << +bytes.b << '/' << +bytes.c << ' ';
    return out << style.hidden;
}

namespace {

constexpr std::string_view mobileFile =
    "wall=S,1,2\r\ntree=P,x=y\n\nno style\rWALL=A\na=b=P\nhatch=A,1\nTree2=P\n=P,nameless\n";

TEST(MobileStyles, NumberIsThatOfTheFirstLine) {
    const std::pair<std::string_view, std::uint32_t> cases[] = {
        {"wall", 0},     {"Wall", 0}, {"tree", 1},    {"TREE", 1},     {"tre", 0},
        {"no style", 0}, {"a", 5},    {"A=b", 5},     {"tree=P,x", 1}, {"hatch", 6},
        {"tree2", 7},    {"", 8},     {"missing", 0}, {"hatch=A", 0}};
    const MobileStyles styles(mobileFile);
    for (const auto& [name, number] : cases) EXPECT_EQ(styles.NumberOf(name), number) << name;
}

TEST(MobileStyles, ListsOfACell) {
    const std::string colours = "Black|Red|Green|Blue|Cyan|Purple|Yellow|Gray";
    const std::string line = "|--------------------------", select = "|<Select Mobile StyleFile>";
    const MobileStyles styles(mobileFile);
    EXPECT_EQ(styles.ListFor("P"), colours + line + "|tree|Tree2|" + select);
    EXPECT_EQ(styles.ListFor("A"), colours + line + "|WALL|hatch" + select);
    EXPECT_EQ(styles.ListFor(""), colours + line + "|wall|tree|WALL|a|hatch|Tree2|" + select);
    EXPECT_EQ(MobileStyles().ListFor("P"), colours + select);
}

TEST(LayerStyles, RowOfALayer) {
    std::string many;
    for (int i = 0; i < 300; ++i) many += "s" + std::to_string(i) + "=P\n";
    const MobileStyles mobile(many);
    const StyleRow rows[] = {
        {"ROADS", "Red", "s7", "", "0", "0", "0"},
        {"roads", "Gray", "Gray", "Gray", "0", "0", "0"},
        {"Flags", "Black", "GRAY", "S255", "-1", " -1", "0"},
        {"thick", "Yellow", "s256", "s1", "-1", "1", ""},
        {"silent", "", "", "", "-1", "-1", "0"},
        {"hidden", "", "", "", "0", "0", "-1"},
        {"DEFAULT", "Blue", "Cyan", "Purple", "0", "-1", "0"},
        {"default", "Red", "Red", "Red", "0", "0", "0"},
    };
    const LayerStyle byDefault{{0, 36}, {0, 37}, {0, 38}, false};
    const std::pair<std::string_view, LayerStyle> cases[] = {
        {"Roads", {{0, 2}, {7, 1}, {0, 1}, false}},
        {"FLAGS", {{0, 48}, {0, 60}, {255, 49}, false}},
        {"thick", {{0, 27}, {0, 17}, {1, 17}, false}},
        {"silent", byDefault},
        {"hidden", {{0, 1}, {0, 1}, {0, 1}, true}},
        {"no row", byDefault},
        {"Default", byDefault},
    };
    const LayerStyles styles(rows, mobile);
    for (const auto& [layer, expected] : cases) {
        ASSERT_NE(styles.StyleFor(layer), nullptr);
        EXPECT_EQ(*styles.StyleFor(layer), expected) << layer;
    }
    const LayerStyles withoutDefault(std::span(rows, 6), mobile);
    EXPECT_EQ(withoutDefault.StyleFor("silent"), nullptr);
    EXPECT_EQ(withoutDefault.StyleFor("no row"), nullptr);
}

TEST(AnnotationText, ValuesOfSelectedFields) {
    struct Case {
        std::vector<std::pair<std::string, std::string>> attributes;
        std::string text;
        std::vector<std::string> lines;
    };
    const Case cases[] = {
        {{}, "", {}},
        {{{"NAME", " High St "}}, "High St", {"High St"}},
        {{{"WIDTH", "12.50"}, {"NAME", "a,b"}}, "a,b,12.5", {"a", "b", "12.5"}},
        {{{"WIDTH", "7.00"}, {"NOTE", "x"}}, "7.", {"7."}},
        {{{"WIDTH", "700"}, {"name", "x"}}, "700", {"700"}},
        {{{"WIDTH", "3"}, {"NAME", ""}}, ",3", {"", "3"}},
        {{{"NAME", "  "}}, "", {}},
        {{{"NAME", "."}, {"NAME", "second"}}, ".", {"."}},
    };
    AnnotationText annotation(std::vector<ListedName>{{"NAME", true}, {"NOTE", false}, {"WIDTH", true}});
    drawing::Drawing drawing;
    for (const Case& c : cases) {
        drawing::Entity entity = drawing.addText({}, "shown", 1, 0);
        for (const auto& [name, value] : c.attributes) entity.xproperties().add(name, value);
        std::string text(annotation.BuildAnnotationText(entity));
        EXPECT_EQ(text, c.text);
        std::vector<std::string> lines;
        ForEachAnnotationLine(text, [&](std::string_view line, std::size_t index) {
            EXPECT_EQ(index, lines.size());
            lines.emplace_back(line);
        });
        EXPECT_EQ(lines, c.lines);
    }
}

TEST(DrawingTools, LayersFromValues) {
    drawing::Drawing drawing;
    drawing.setActiveLayer("OLD");
    auto add = [&](std::string_view name, std::string_view value) {
        drawing::Entity entity = drawing.addText({}, "CLASS", 1, 0);
        entity.xproperties().add("N", "1");
        entity.xproperties().add(name, value);
        return entity;
    };
    drawing::Entity wall = add("CLASS", "Wall"), other = add("class", "Wall"), again = add("CLASS", "WALL");
    add("CLASS", "gone").erase();
    RelayerByAttribute("CLASS", drawing);
    EXPECT_EQ(wall.layerName(), "Wall");
    EXPECT_EQ(again.layerName(), "Wall");
    EXPECT_EQ(other.layerName(), "OLD");
    EXPECT_EQ(drawing.findLayer("gone"), nullptr);
    EXPECT_EQ(AttributeNames(drawing), (std::vector<std::string>{"N", "CLASS", "class"}));

    std::vector<StyleRow> rows = {{"wall", "Red", "Red", "Red"}};
    AddMissingLayers(rows, drawing);
    EXPECT_EQ(rows,
              (std::vector<StyleRow>{{"wall", "Red", "Red", "Red"}, {"0", "", "", ""}, {"OLD", "", "", ""}}));
}

TEST(DrawingTools, ScaleAndMove) {
    drawing::Drawing drawing;
    drawing::Entity circle = drawing.addCircle({100, 200, 10}, 10);
    drawing::Entity line = drawing.addLine({0, 0}, {1000, -1000});
    ScaleFeetToMetres(drawing);
    MoveDrawing(drawing, {30.48, 60.96}, {0, 0.96});
    EXPECT_DOUBLE_EQ(circle.radius(), 3.048);
    EXPECT_EQ(circle.position().z, 10 * 0.3048);
    EXPECT_NEAR(circle.position().x, 0, 1e-9);
    EXPECT_NEAR(line.vertex(1).x, 274.32, 1e-9);
    EXPECT_NEAR(line.vertex(1).y, -364.8, 1e-9);
}

}  // namespace
}  // namespace vexlator::background
