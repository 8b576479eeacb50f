// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/Vdf.h"
#include "mapbook/JobData.h"
#include "mapbook/SurveyLayout.h"
#include "mapbook/Symbols.h"

#include <cmath>
#include <gtest/gtest.h>

namespace vexlator::mapbook {
namespace {

drawing::Entity AddLine(drawing::Drawing& drawing, std::string_view layer,
                        std::vector<drawing::Point> points) {
    drawing.setActiveLayer(layer);
    return drawing.addPolyline(points);
}

void AddTadpoleBlock(drawing::Drawing& drawing) {
    drawing::Drawing symbol;
    DrawTadpole(symbol);
    drawing.addBlock({std::string(tadpoleSymbol), drawing::VdfBytes(symbol)});
}

/// Where a tadpole's head and the end of its tail are.
struct Ends {
    drawing::Point head, tail;
};
Ends EndsOf(const drawing::Entity& tadpole) {
    drawing::Point head = tadpole.insertionPoint();
    double length = tadpole.shape().scaleY, turn = tadpole.rotation();
    return {head, {head.x - std::sin(turn) * length, head.y + std::cos(turn) * length, 0}};
}

TEST(SurveyLayout, TadpolesPointDownTheSlopeOnTheirSide) {
    drawing::Drawing drawing;
    AddTadpoleBlock(drawing);
    AddLine(drawing, "EMBANKMENT", {{0, 0}, {9, 0}}).xproperties().add("SideOfRail", "RIGHT");
    AddLine(drawing, "CUTTING", {{0, 100}, {9, 100}});
    LayoutSizes sizes{.text = 1, .tadpole = 2, .tadpoleSpacing = 4};
    for (int run = 0; run < 2; ++run) {  // a second run replaces them
        DrawTadpoles(drawing, sizes);
        drawing::SelectionSet tadpoles = drawing.selectLayer("TADPOLES");
        ASSERT_EQ(tadpoles.count(), 4);
        Ends bank = EndsOf(tadpoles.item(0)), cutting = EndsOf(tadpoles.item(2));
        EXPECT_NEAR(bank.head.x, 2, 1e-9);
        EXPECT_NEAR(bank.head.y, 0, 1e-9);
        EXPECT_NEAR(bank.tail.y, -2, 1e-9);
        EXPECT_NEAR(cutting.head.y, 102, 1e-9);
        EXPECT_NEAR(cutting.tail.y, 100, 1e-9);
        EXPECT_LT(tadpoles.item(1).shape().scaleY, tadpoles.item(0).shape().scaleY);
    }
}

TEST(SurveyLayout, LinesGetTheirTypesAndWatersTheirFills) {
    drawing::Drawing drawing;
    AddLine(drawing, "River", {{0, 0}, {9, 0}});
    AddLine(drawing, "FENCE", {{0, 0}, {9, 0}});
    for (const char* layer : {"POND", "STANDING"})
        for (bool closed : {true, false}) AddLine(drawing, layer, {{0, 0}, {9, 0}, {9, 9}}).setClosed(closed);
    StylePolylines(drawing);
    EXPECT_EQ(drawing.entityAt(0).style().lineType, "LineRiver");
    EXPECT_EQ(drawing.entityAt(1).style().lineType, "");
    EXPECT_EQ(drawing.entityAt(2).style().lineType, "AR-CONC");
    EXPECT_TRUE(drawing.entityAt(2).isFilled());
    EXPECT_FALSE(drawing.entityAt(3).isFilled());
    EXPECT_TRUE(drawing.entityAt(4).isFilled());
    EXPECT_NE(drawing.entityAt(4).style().fillColour, drawing.entityAt(2).style().fillColour);
}

TEST(SurveyLayout, AnnotatesFamiliesOnce) {
    drawing::Drawing drawing;
    drawing.setActiveLayer("BRIDGE");
    drawing.addPoint({5, 5, 0}).xproperties().add("BRIDGE_NO", "17/4");
    drawing.addPoint({6, 6, 0}).xproperties().add("BRIDGE_NO", "  ");
    AddLine(drawing, "SIGNAL", {{10, 0}, {0, 0}}).xproperties().add("TYPE", "home");
    for (int run = 0; run < 2; ++run) AnnotateSurvey(drawing, {.text = 2});
    ASSERT_EQ(drawing.selectLayer("BRDGANNO").count(), 1);
    drawing::Entity text = drawing.selectLayer("SIGANNO").item(0);
    EXPECT_EQ(text.text(), "home");
    EXPECT_NEAR(std::cos(text.rotation()), 1, 1e-9);  // never upside down
    EXPECT_GT(text.insertionPoint().y, 0);
    Annotate(drawing, "TYPE", "", "ALLANNO", {.text = 2});
    EXPECT_EQ(drawing.selectLayer("ALLANNO").count(), 1);
}

TEST(JobData, ComesFromCommandRecords) {
    JobData data;
    TakeCommandRecords(
        "$GIS,P,1,TREE,1,2,3\r\nCO,DATE,01/02/2024\r\nCO,DESC,Bank;; left , side\nCO,desc,no\nCO,DEVICE",
        data);
    EXPECT_EQ(data.description, "Bank, left , side");
    EXPECT_EQ(data.created, "01/02/2024");
    EXPECT_EQ(data.device, "");
    JobData dated;
    TakeCommandRecords("CO,DATE,1\nCO,PACKAGECREATED,2\nCO,KeyID,9", dated);
    EXPECT_EQ(dated.created + dated.keyId, "29");
}

}  // namespace
}  // namespace vexlator::mapbook
