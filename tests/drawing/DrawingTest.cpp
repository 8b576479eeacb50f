// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/Drawing.h"

#include <gtest/gtest.h>
#include <numbers>
#include <random>

namespace vexlator::drawing {
namespace {

std::vector<std::string> Handles(const SelectionSet& set) {
    std::vector<std::string> handles;
    for (std::size_t i = 0; i < set.count(); ++i) handles.push_back(set.item(i).handle());
    return handles;
}

std::vector<std::string> Values(Entity entity) {
    std::vector<std::string> values;
    for (ValueCursor cursor = entity.xproperties().values(); !cursor.AtEnd();)
        values.emplace_back(cursor.Next());
    return values;
}

TEST(Drawing, LayersAreFoundInAnyCaseAndSelectedInDrawingOrder) {
    Drawing drawing;
    drawing.setActiveLayer("Fence");
    Entity a = drawing.addPoint({1, 2, 0});
    drawing.setActiveLayer("WALL");
    Entity b = drawing.addPoint({3, 4, 0});
    drawing.setActiveLayer("FENCE");
    Entity c = drawing.addPoint({5, 6, 0});
    EXPECT_EQ(drawing.layerCount(), 3U);  // including "0", which every drawing has
    EXPECT_EQ(c.layerName(), "Fence");

    b.setLayerName("fence");
    EXPECT_EQ(Handles(drawing.selectLayer("FENCE")), (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_EQ(drawing.selectLayer("WALL").count(), 0U);
    a.erase();
    b.setLayerName("WALL");
    b.setLayerName("FENCE");
    EXPECT_EQ(Handles(drawing.selectLayer("FENCE")), (std::vector<std::string>{"2", "3"}));
    EXPECT_EQ(drawing.entityCount(), 2U);
    EXPECT_EQ(drawing.entityAt(0).handle(), "2");
    EXPECT_FALSE(drawing.findByHandle("1"));
    EXPECT_EQ(drawing.findByHandle("3")->position(), (Point{5, 6, 0}));
    EXPECT_EQ(drawing.findLayer("gate"), nullptr);
}

TEST(Drawing, HandlesAreUniqueWhateverIsSet) {
    Drawing drawing;
    Entity a = drawing.addPoint({});
    Entity b = drawing.addPoint({});
    EXPECT_TRUE(drawing.setHandle(a, "ff"));
    EXPECT_EQ(a.handle(), "FF");
    EXPECT_FALSE(drawing.setHandle(b, "FF"));
    EXPECT_FALSE(drawing.setHandle(b, "not hexadecimal"));
    EXPECT_FALSE(drawing.setHandle(b, "FFFFFFFFFFFFFFFF"));
    Entity c = drawing.addPoint({});
    EXPECT_EQ(c.handle(), "100");
    EXPECT_EQ(drawing.findByHandle("2")->index(), b.index());
    EXPECT_EQ(drawing.findByHandle("ff")->index(), a.index());
    EXPECT_FALSE(drawing.findByHandle("1"));
}

TEST(Drawing, AttributesKeepTheirOrderThroughEveryChange) {
    Drawing drawing;
    Entity a = drawing.addPoint({});
    a.xproperties().add("NAME", "one");
    a.xproperties().add("NOTES", std::string(70000, 'x'));
    Entity b = drawing.addPoint({});
    b.xproperties().add("NAME", "two");
    a.xproperties().add("NAME", "again");  // after b's values: a's values move
    b.xproperties().item(0).setValue("a longer value than before");
    a.xproperties().item(1).setValue("");
    a.xproperties().item(1).setName("REMARKS");
    a.setHyperlink("photo.jpg");
    a.setLabel("label");
    EXPECT_EQ(Values(a), (std::vector<std::string>{"one", "", "again"}));
    EXPECT_EQ(Values(b), (std::vector<std::string>{"a longer value than before"}));
    EXPECT_EQ(a.xproperties().name(1), "REMARKS");
    EXPECT_EQ(a.xproperties().find("NAME")->value(), "one");
    EXPECT_FALSE(a.xproperties().find("name"));
    EXPECT_EQ(a.label(), "label");
    EXPECT_EQ(a.hyperlink(), "photo.jpg");
    a.setLabel("");
    EXPECT_EQ(a.label(), "");
    EXPECT_EQ(a.hyperlink(), "photo.jpg");
    EXPECT_EQ(Values(a), (std::vector<std::string>{"one", "", "again"}));
}

TEST(Drawing, SharedValuesPartWhenOneChanges) {
    Drawing drawing;
    std::vector<std::string> names{"A", "B"};
    AttributeSet set = drawing.attributeSet(names);
    Entity first = drawing.addPolyline();
    drawing.beginValues(set);
    drawing.appendValue("1");
    drawing.appendValue("2");
    Entity second = drawing.addPolyline();
    drawing.shareValues();
    Entity third = drawing.addPolyline();
    drawing.shareValues();
    second.xproperties().item(0).setValue("9");
    third.xproperties().add("C", "3");
    EXPECT_EQ(Values(first), (std::vector<std::string>{"1", "2"}));
    EXPECT_EQ(Values(second), (std::vector<std::string>{"9", "2"}));
    EXPECT_EQ(Values(third), (std::vector<std::string>{"1", "2", "3"}));
    first.xproperties().add("D", "4");
    EXPECT_EQ(Values(third), (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_EQ(Values(first), (std::vector<std::string>{"1", "2", "4"}));
}

TEST(Drawing, VerticesGrowAnywhereAndKeepTheirHeights) {
    Drawing drawing;
    Entity line = drawing.addPolyline(std::vector<Point>{{0, 0, 0}, {3, 4, 0}});
    Entity point = drawing.addPoint({9, 9, 7});
    line.appendVertex({3, 10, 2});
    EXPECT_EQ(line.vertexCount(), 3U);
    EXPECT_EQ(line.vertex(1), (Point{3, 4, 0}));
    EXPECT_EQ(line.vertex(2), (Point{3, 10, 2}));
    EXPECT_EQ(point.position(), (Point{9, 9, 7}));
    EXPECT_DOUBLE_EQ(line.length(), 11);
    line.setClosed(true);
    EXPECT_DOUBLE_EQ(line.length(), 11 + std::hypot(3, 10));
    EXPECT_DOUBLE_EQ(drawing.addCircle({100, 100, 0}, 10).length(), 20 * std::numbers::pi);
    EXPECT_EQ(drawing.extents(), (Box{0, 0, 110, 110}));
    drawing.scale(0.5);
    EXPECT_EQ(line.vertex(2), (Point{1.5, 5, 1}));
    EXPECT_EQ(drawing.extents(), (Box{0, 0, 55, 55}));
}

}  // namespace
}  // namespace vexlator::drawing
