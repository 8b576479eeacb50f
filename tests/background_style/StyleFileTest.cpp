// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/styling/modGRPstyling.h"
#include "support/Errors.h"
#include "support/TempFolder.h"
#include "util/Text.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace vexlator::background {
namespace {

class StyleFile : public testing::Test {
protected:
    test::TempFolder folder_;
};

std::string LayersOf(const std::vector<StyleRow>& rows) {
    std::string layers;
    for (const StyleRow& row : rows) layers += "[" + row.layer + "]";
    return layers;
}

TEST_F(StyleFile, RowsThatCount) {
    const StyleRow defaultRow{"DEFAULT", "Blue", "Blue", "Blue", "0", "-1", "0"};
    struct Case {
        std::string name, text, layers;
    };
    const Case cases[] = {
        {"gap.bsf", "[LAYERS]\n1=A,Red\n2=B\n4=D\n", "[A][B][DEFAULT]"},
        {"emptyvalue.bsf", "[LAYERS]\n1=A\n2=\n3=C\n", "[A][DEFAULT]"},
        {"own.bsf", "[layers]\r\n2=Default,Red\r\n1=A", "[A][Default]"},
        {"other.bsf", "[LAYER]\n1=A\n", "[DEFAULT]"},
        {"twice.bsf", "[LAYERS]\n1=A\n1=B\n[X]\n[LAYERS]\n2=C\n", "[A][DEFAULT]"},
        {"empty.bsf", "", "[DEFAULT]"},
        {"any.TXT", "[LAYERS]\n1=A\n", ""},
        {"any.txt", "[LAYERS]\n1=A\n", ""},
    };
    for (const Case& c : cases) {
        std::vector<StyleRow> rows = LoadStyleRows(folder_.Write(c.name, c.text), true);
        EXPECT_EQ(LayersOf(rows), c.layers) << c.name;
        if (!rows.empty() && rows.back().layer == "DEFAULT") {
            EXPECT_EQ(rows.back(), defaultRow) << c.name;
        }
    }
    EXPECT_EQ(LoadStyleRows(folder_ / "empty.bsf", false).size(), 0u);
    EXPECT_EQ(LoadBackgroundStyle(folder_ / "missing.bsf"), BackgroundStyle{});
}

TEST_F(StyleFile, ValuesOfAllSections) {
    std::string file =
        folder_.Write("a.bsf",
                      "[LAYERS]\n1= Caf\xE9,Red,,my style,-1,0,-1,extra\n2=B,Red\n"
                      "[MOBILEATTRIBS]\n1=NAME,True\n2=UPRN,False\n3=X\n"
                      "[ANNOTATIONS]\n1=,TRUE\n"
                      "[LAYERON]\nFIELD=CLASS\n[SEARCHON]\nfield= \"NAME \"\n[FIXEDANNO]\nHGT=2.5m\n");
    BackgroundStyle style = LoadBackgroundStyle(file, false);
    EXPECT_EQ(style, (BackgroundStyle{{{"Caf\xC3\xA9", "Red", "", "my style", "-1", "0", "-1"},
                                       {"B", "Red", "", "", "", "", ""}},
                                      {{"NAME", true}, {"UPRN", false}, {"X", false}},
                                      {{"", true}},
                                      "CLASS",
                                      "NAME ",
                                      "2.5m"}));
    EXPECT_EQ(style.FixedAnnotationHeight(), 2.5);
    EXPECT_EQ(BackgroundStyle{}.FixedAnnotationHeight(), std::nullopt);
}

TEST_F(StyleFile, SavingWritesTheWholeFileAnew) {
    std::string file = folder_.Write("a.bsf", "[LAYERS]\n1=X\n7=Y\n[OTHER]\nk=v\n");
    BackgroundStyle style{{{"A", "Red", "Blue", "Gray", "-1", "0", "0"}, {"DEFAULT", "wall", "", ""}},
                          {{"NAME", true}},
                          {{"UPRN", false}, {"NAME", true}},
                          "",
                          std::string(noSearchField),
                          "2"};
    SaveBackgroundStyle(file, style, true);
    EXPECT_EQ(test::TempFolder::Read(file),
              "[LAYERS]\r\n1=A,Red,Red,Red,-1,0,0\r\n2=DEFAULT,wall,wall,wall,0,0,0\r\n"
              "[MOBILEATTRIBS]\r\n1=NAME,True\r\n[ANNOTATIONS]\r\n1=UPRN,False\r\n2=NAME,True\r\n"
              "[LAYERON]\r\nFIELD=\r\n[SEARCHON]\r\nFIELD=\r\n[FIXEDANNO]\r\nHGT=2\r\n");

    SaveStyleRows(file, {{"B", "Red", "", ""}}, true);
    SaveOptimisedAttributes(file, {{"X", false}});
    SaveAnnotationFields(file, {});
    EXPECT_EQ(LoadBackgroundStyle(file, false),
              (BackgroundStyle{{{"B", "Red", "Red", "Red"}}, {{"X", false}}, {}, "", "", "2"}));
    EXPECT_EQ(LoadOptimisedAttributes(file), (std::vector<ListedName>{{"X", false}}));
    EXPECT_TRUE(LoadAnnotationFields(file).empty());
}

TEST_F(StyleFile, WhatIsSavedIsLoaded) {
    std::mt19937 random(5);
    const std::string_view odd =
        "| |\"a\"|'|=|;x|[LAYERS]|True|a b\t|K\xC3\xBC|\xE2\x82\xAC|1|\xEF\xBB\xBF|\"";
    auto part = [&] { return std::string(util::GetBarField(random() % 14, odd)); };
    auto text = [&] { return part() + part(); };
    for (int round = 0; round < 50; ++round) {
        BackgroundStyle style;
        for (auto n = random() % 30; n > 0; --n)
            style.rows.push_back({text(), text(), text(), text(), text(), text(), text()});
        for (auto n = random() % 5; n > 0; --n) style.optimisedAttributes.push_back({text(), n == 1});
        for (auto n = random() % 5; n > 0; --n) style.annotationFields.push_back({text(), n == 2});
        style.layerOnField = text();
        style.searchOnField = text();
        style.fixedAnnotationHeight = text();
        SaveBackgroundStyle(folder_ / "a.bsf", style, false);
        EXPECT_EQ(LoadBackgroundStyle(folder_ / "a.bsf", false), style);
    }
}

TEST_F(StyleFile, NamesThatDoNotFitAreRefused) {
    std::string file = folder_.Write("a.bsf", "[LAYERS]\n1=X\n");
    for (const std::string& name : {std::string("A,B"), std::string("A\nB"), std::string(2040, 'x')}) {
        std::string error = test::ErrorOf<platform::WriteError>([&] {
            SaveStyleRows(file, {{name, "Red", "", ""}}, false);
        });
        EXPECT_NE(error.find("a.bsf: \"" + name.substr(0, 100)), std::string::npos) << error;
        EXPECT_EQ(test::TempFolder::Read(file), "[LAYERS]\n1=X\n");
    }
}

TEST_F(StyleFile, TooLarge) {
    std::string file = folder_.Write("a.bsf", "[LAYERS]\n1=X\n");
    std::filesystem::resize_file(file, largestStyleFile);
    EXPECT_EQ(LoadStyleRows(file, false).size(), 1u);
    std::filesystem::resize_file(file, largestStyleFile + 1);
    EXPECT_THROW(LoadStyleRows(file, false), platform::ReadError);
}

}  // namespace
}  // namespace vexlator::background
