// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/styling/MobileStyleFile.h"
#include "background/styling/MobileStyleLook.h"
#include "background/styling/StyleEdits.h"

#include <gtest/gtest.h>
#include <random>
#include <stdexcept>
#include <string>

namespace vexlator::background {

namespace {

// Whatever stands in a file, an edited field alone differs afterwards, and editing it back gives the file
// again.
TEST(MobileStyleFile, KeepsWhatItDoesNotEdit) {
    std::mt19937 random(7);
    const std::string letters("aB,,==\r\n\t;P\xE4\xC3\xA4\xEF\xBB\xBF\0 ", 20);
    for (int round = 0; round < 3000; ++round) {
        std::string bytes;
        for (std::size_t i = random() % 60; i > 0; --i) bytes += letters[random() % letters.size()];
        MobileStyleFile file(bytes);
        ASSERT_EQ(file.Bytes(), bytes);
        for (std::size_t line = 0; line < file.LineCount(); ++line) {
            auto field = static_cast<MobileField>(random() % mobileFields);
            if (!file.IsStyle(line)) continue;
            MobileStyleFile edited = file;
            edited.SetField(line, field, "Zz9");
            ASSERT_EQ(edited.Field(line, field), "Zz9");
            ASSERT_EQ(edited.LineCount(), file.LineCount());
            for (int other = 0; other < mobileFields; ++other) {
                auto each = static_cast<MobileField>(other);
                if (each == field) continue;
                ASSERT_EQ(edited.Field(line, each), file.Field(line, each)) << bytes;
            }
            std::string before = file.Field(line, field);
            bool canBeWritten = before.find_first_of(std::string_view(",\0", 2)) == std::string::npos;
            if (before.empty() || field != MobileField::Name || !canBeWritten) continue;
            edited.SetField(line, field, before);
            ASSERT_EQ(edited.Bytes(), bytes);
        }
    }
}

TEST(MobileStyleFile, WritesOneFieldOfALine) {
    const std::string bytes = "; crews\r\nTree=P, Red ,5,Solid,Star,own,\xE4\nno style\rFence=S";
    MobileStyleFile file(bytes);
    file.SetField(1, MobileField::Colour, "Green");
    file.SetField(3, MobileField::Symbol, "Plus");
    file.SetField(1, MobileField::Name, "B\xC3\xA4um");
    EXPECT_EQ(file.Bytes(), "; crews\r\nB\xE4um=P,Green,5,Solid,Star,own,\xE4\nno style\rFence=S,,,,Plus");
    EXPECT_THROW(file.SetField(1, MobileField::Name, "a=b"), std::invalid_argument);
    EXPECT_THROW(file.SetField(1, MobileField::Width, "1,5"), std::invalid_argument);
    EXPECT_THROW(file.SetField(1, MobileField::Name, "\xE6\xA8\xB9"), std::invalid_argument);
    file.InsertStyle(9, "New", "A");
    EXPECT_TRUE(file.Bytes().ends_with("Plus\r\nNew=A\r\n"));
    EXPECT_EQ(file.FaultOf(4), "");
    file.SetField(4, MobileField::Name, "fence");
    EXPECT_EQ(file.FaultOf(4), "Line 4 has this name too, and comes first");
}

TEST(MobileStyleLook, FieldsThatNobodyKnowsHaveDefaults) {
    EXPECT_EQ(LookOfFields("S"), (MobileStyleLook{}));
    EXPECT_EQ(LookOfFields("P,#8B4513,2.5,dash, star ,own"),
              (MobileStyleLook{0x8B4513, 2.5, MobilePattern::Dash, MobileSymbol::Star}));
    EXPECT_EQ(LookOfFields("P,#8B45,-1,none of it,,"), (MobileStyleLook{}));
    EXPECT_EQ(LookOfFields("S,red,1e9").width, 64);
}

TEST(StyleEdits, EntitiesInLines) {
    drawing::Drawing drawing;
    drawing.setActiveLayer("WALL");
    drawing::Entity ring =
        drawing.addPolyline(std::vector<drawing::Point>{{0, 0, 0}, {3.00049, 0, 0}, {3, 4, 0}});
    ring.setClosed(true);
    EXPECT_EQ(EntityLines(ring), (std::vector<std::string>{"VDPOLYLINE", "WALL", "Length:12", "CLOSED:YES",
                                                           "EXTENTS:0,0 to 3,4"}));
    EXPECT_EQ(EntityLines(drawing.addPoint({1, 2, 0})).back(), "EXTENTS:1,2 to 1,2");
}

TEST(StyleEdits, PlacesAreTwoNumbers) {
    EXPECT_EQ(PlaceOf(" 12.5 , -3"), (drawing::PlanePoint{12.5, -3}));
    for (std::string_view text : {"", "12", "1,2,3", "1,x", "nan,1", "1,inf"})
        EXPECT_FALSE(PlaceOf(text)) << text;
}

// A style could not be saved any more for a name that nobody chose.
TEST(StyleEdits, NamesThatAStyleFileCannotHoldAreNotTakenIn) {
    std::vector<StyleRow> rows;
    AddMissingLayers(rows, std::vector<std::string>{"Smith, J.", "two\nlines", "ROAD"});
    EXPECT_EQ(rows, (std::vector<StyleRow>{{"ROAD", "", "", ""}}));
    EXPECT_EQ(WithNames({}, std::vector<std::string>{"a,b", "c"}), (std::vector<ListedName>{{"c"}}));
}

TEST(StyleEdits, ResetKeepsNothingButTheLayers) {
    BackgroundStyle style;
    style.rows = {{"OLD", "Red", "Red", "Red"}};
    style.annotationFields = style.optimisedAttributes = {{"NAME", true}};
    style.searchOnField = "NAME";
    style.layerOnField = "CLASS";
    ResetStyle(style, std::vector<std::string>{"0", "default"});
    EXPECT_EQ(style.rows, (std::vector<StyleRow>{DefaultRow(), {"0", "", "", ""}}));
    EXPECT_TRUE(style.annotationFields.empty() && style.optimisedAttributes.empty() &&
                style.searchOnField.empty());
    EXPECT_EQ(style.layerOnField, "CLASS");
}

}  // namespace
}  // namespace vexlator::background
