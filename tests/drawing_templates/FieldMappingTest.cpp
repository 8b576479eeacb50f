// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/FieldMapping.h"
#include "drawing/SymbolBlock.h"
#include "support/Installation.h"

namespace vexlator::drawing {
namespace {

TEST(ShortenValue, CutsAtASeparatorBehindAShortCode) {
    struct Case {
        std::string separator, value, shortened;
    };
    const Case cases[] = {
        {"-", "AB-Tarmac", "AB"},
        {"-", "ABC-D", "ABC"},
        {"-", "ABCD-E", "ABCD-E"},
        {"-", "AB- Tarmac", "AB- Tarmac"},
        {"-", "AB -Tarmac", "AB -Tarmac"},
        {"-", "AB-", "AB-"},
        {"-", "-AB", "-AB"},
        {"-", "A-B-C", "A"},
        {"", "A-B", "A-B"},
        {"::", "AB::C", "AB"},
        {":: ", "AB:: C", "AB"},
        {"-", "\xC3\x96\xC3\x96\xC3\x96-x", "\xC3\x96\xC3\x96\xC3\x96"},
        {"-", "\xF0\x9F\x8C\xB3\xF0\x9F\x8C\xB3\xF0\x9F\x8C\xB3-x",
         "\xF0\x9F\x8C\xB3\xF0\x9F\x8C\xB3\xF0\x9F\x8C\xB3"},
        {"\xE2\x80\x93", "AB\xE2\x80\x93", "AB\xE2\x80\x93"},
    };
    for (const Case& c : cases) {
        config::SharedSettings settings;
        settings.SHORTENFIELDSON = c.separator;
        EXPECT_EQ(ShortenValue(settings, c.value), c.shortened) << c.separator << " in " << c.value;
    }
}

class FeatureChanges : public test::InstallationTest {
protected:
    void Apply(std::string_view ini) {
        Ini("[INOUTFEATCHANGE]\r\n" + std::string(ini));
        ApplyFeatureChanges(run, drawing, "");
    }
    Entity Add(std::string_view layer, std::vector<std::pair<std::string, std::string>> attributes) {
        drawing.setActiveLayer(layer);
        Entity entity = drawing.addPoint({1, 2, 0});
        for (const auto& [name, value] : attributes) entity.xproperties().add(name, value);
        return entity;
    }
    std::size_t CountOn(std::string_view layer) { return drawing.selectLayer(layer).count(); }

    Drawing drawing;
};

TEST_F(FeatureChanges, MoveEntitiesAndRenameAttributes) {
    Entity pipe = Add("PIPE", {{"code", "7"}, {"DATE", "20240315"}, {"Code", "second"}});
    Entity old = Add("MAIN", {});
    Apply("PIPE=MAIN\r\nPIPE_Fields=CODE|FEATCODE,DATE|SurveyDate\r\n");
    EXPECT_EQ(pipe.layerName(), "MAIN");
    EXPECT_EQ(old.layerName(), "MAIN");
    EXPECT_EQ(pipe.xproperties().name(0), "FEATCODE");
    EXPECT_EQ(pipe.xproperties().item(0).value(), "7");
    EXPECT_EQ(pipe.xproperties().name(1), "SurveyDate");
    EXPECT_EQ(pipe.xproperties().item(1).value(), "15/03/2024");
    EXPECT_EQ(pipe.xproperties().name(2), "Code");
    EXPECT_EQ(drawing.activeLayerName(), "MAIN");
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(FeatureChanges, EveryEntityWithoutTheAttributeIsReported) {
    Add("A", {{"X", "1"}});
    Add("A", {{"Y", "2"}});
    Entity both = Add("A", {{"X", "3"}, {"Y", "4"}});
    Apply("A=B\r\nA_Fields=X|X2,Y|Y2\r\n");
    EXPECT_EQ(ui.messages, (std::vector<std::string>{"Y Not found to replace", "X Not found to replace"}));
    EXPECT_EQ(both.xproperties().name(1), "Y2");
}

TEST_F(FeatureChanges, Layer0AndFrozenLayersAndCodesWithoutChangeStay) {
    Add("0", {});
    Add("ICE", {});
    Add("PLAIN", {});
    Add("A", {});
    drawing.findLayer("ICE")->frozen = true;
    Apply("0=X\r\nICE=X\r\nA=NEW\r\nEMPTY=NEVER\r\n");
    for (std::string layer : {"0", "ICE", "PLAIN", "NEW"}) EXPECT_EQ(CountOn(layer), 1U) << layer;
    EXPECT_EQ(drawing.findLayer("X"), nullptr);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(FeatureChanges, EndWhenCodesChangeIntoEachOther) {
    Add("A", {});
    Apply("A=B\r\nB=C\r\nC=A\r\n");
    EXPECT_EQ(CountOn("B"), 1U);
}

class SymbolBlock : public test::InstallationTest {
protected:
    Drawing drawing;
};

TEST_F(SymbolBlock, IsLoadedOnceFromItsFile) {
    folder.Write("Symbols/valve.vdf", "first");
    EXPECT_EQ(EnsureSymbolBlock(run, "VALVE", drawing), "VALVE");
    folder.Write("Symbols/valve.vdf", "second");
    EXPECT_EQ(EnsureSymbolBlock(run, "VALVE", drawing), "VALVE");
    ASSERT_NE(drawing.findBlock("VALVE"), nullptr);
    EXPECT_EQ(drawing.findBlock("VALVE")->content, "first");
}

TEST_F(SymbolBlock, FallsBackToTheDefaultSymbol) {
    EXPECT_EQ(EnsureSymbolBlock(run, "VALVE", drawing), "");
    EXPECT_EQ(ui.messages, std::vector<std::string>{"No Default Sym"});
    folder.Write("Symbols/DEFAULT.VDF", "default");
    folder.Write("outside.vdf", "outside");
    std::size_t blocks = drawing.blocks().size();
    for (std::string name : {"VALVE", "TAP", "..\\outside", "../outside"})
        EXPECT_EQ(EnsureSymbolBlock(run, name, drawing), "DEFAULT") << name;
    EXPECT_EQ(drawing.findBlock("DEFAULT")->content, "default");
    EXPECT_EQ(drawing.blocks().size(), blocks + 1);
    EXPECT_EQ(ui.messages.size(), 1U);
}

TEST_F(SymbolBlock, AFileTooLargeForASymbolIsRefused) {
    std::string path = folder.Write("Symbols/HUGE.VDF", "x");
    std::filesystem::resize_file(path, largestSymbol + 1);
    EXPECT_EQ(EnsureSymbolBlock(run, "HUGE", drawing), "");
    ASSERT_EQ(ui.messages.size(), 1U);
    EXPECT_NE(ui.messages[0].find("HUGE.VDF"), std::string::npos);
    EXPECT_EQ(drawing.findBlock("HUGE"), nullptr);
}

}  // namespace
}  // namespace vexlator::drawing
