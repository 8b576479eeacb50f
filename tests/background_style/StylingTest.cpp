// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/styling/AnnotationText.h"
#include "background/styling/DrawingTools.h"
#include "background/styling/LayerStyles.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace vexlator::background {

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

/// The numbers of the device. Random maps test the other values of rows.
TEST(LayerStyles, ClassesOfCells) {
    std::string many;
    for (int i = 0; i < 300; ++i) many += "s" + std::to_string(i) + "=P\n";
    const StyleRow rows[] = {{"A", "Red", "GRAY", "Purple", "-1", " -1", "0"},
                             {"B", "s7", "S255", "s256", "-1", "1", ""}};
    const LayerStyles styles(rows, MobileStyles(many));
    EXPECT_EQ(*styles.StyleFor("a"), (LayerStyle{{0, 50}, {0, 60}, {0, 54}, false}));
    EXPECT_EQ(*styles.StyleFor("b"), (LayerStyle{{7, 17}, {255, 17}, {0, 17}, false}));
    EXPECT_EQ(styles.StyleFor("no row, and no default"), nullptr);
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

TEST(DrawingTools, LayersWithoutARowGetOne) {
    drawing::Drawing drawing;
    drawing.setActiveLayer("WALL");
    drawing.setActiveLayer("OLD");
    std::vector<StyleRow> rows = {{"wall", "Red", "Red", "Red"}};
    AddMissingLayers(rows, LayerNames(drawing));
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
