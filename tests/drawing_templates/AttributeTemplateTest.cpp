// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/AttributeTemplate.h"
#include "drawing/FieldMapping.h"
#include "platform/Errors.h"
#include "support/Installation.h"

namespace vexlator::drawing {
namespace {

class AttributeTemplate : public test::InstallationTest {
protected:
    AttributeTemplate() {
        Ini("[GENERICIN]\r\nGenATP=1\r\n");
        std::filesystem::create_directories(folder / "ATP");
    }
    std::string Read(const std::string& name) const { return test::TempFolder::Read(folder / name); }
};

TEST(AtpFields, LinesAreReadByTheirCommas) {
    const std::pair<const char*, const char*> cases[] = {
        {"[01,03]DEPTH<DPTH>,N06.2", "DEPTH|DPTH|N06.2"},
        {"[01,04]TYPE,C20.00=MAIN,SPUR", "TYPE||C20.00"},
        {"[01,05]  SIZE  ,F08.03=", "SIZE||F08.03"},
        {"[01,07]OTHER < SHORT >  ,X99.00", "OTHER| SHORT |X99.00"},
        {"[01,08]OPEN<,C10.00", "OPEN||C10.00"},
        {"[01,09]A]B=C20.00,", "A]B||C20.00"},
        {"NOBRACKET,N5,", "NOBRACKET||N5."},
        {"[01,10]NOTYPE,", "NOTYPE||C."},
        {"[01,02]NOTES", ""},
        {"'[01,02]NOTES,C20.00", ""},
        {"'STYLE=0,VALVE,255,1", ""},
        {"[26,09]", ""},
    };
    for (const auto& [line, expected] : cases) {
        std::string found;
        for (const AtpField& field : ParseAtpFields(line))
            found +=
                field.name + "|" + field.shortName + "|" + field.type + field.width + "." + field.decimals;
        EXPECT_EQ(found, expected) << line;
    }
    auto fields = ParseAtpFields("[01,01]A,Cxy.-3\r\n[01,02]B,C-5.00\n[01,03]C,C7 . 4\r");
    ASSERT_EQ(fields.size(), 3U);
    EXPECT_EQ(fields[0].Width() + fields[0].Decimals() + fields[1].Width(), 0) << "what is not a number is 0";
    EXPECT_EQ(fields[2].Width() * 10 + fields[2].Decimals(), 74);
}

TEST(AtpFields, TheNameThatIsUsedDecidesAboutNull) {
    config::SharedSettings settings;
    const std::string text = "[01,01]NULL,C10.00\r\n[01,02]NULL<KEPT>,C10.00\r\n[01,03]LONG<NULL>,C10.00\r\n";
    auto fields = ParseAtpFields(text);
    ASSERT_EQ(fields.size(), 1U);
    EXPECT_EQ(MappedFieldName(settings, fields[0]), "LONG");

    settings.ReProcessFieldNames = true;
    std::vector<std::string> names;
    for (const AtpField& field : ParseAtpFields(text, NullFields::Keep))
        names.emplace_back(MappedFieldName(settings, field));
    EXPECT_EQ(names, (std::vector<std::string>{"NULL", "KEPT", "NULL"}));
}

TEST_F(AttributeTemplate, TextIsUtf8OrWindows1252) {
    for (std::string bytes : {"[01,01]H\xD6HE,C10.00", "\xEF\xBB\xBF[01,01]H\xC3\x96HE,C10.00"}) {
        auto fields = ReadAtpFields(folder.Write("ATP/X.ATP", bytes));
        ASSERT_EQ(fields.size(), 1U);
        EXPECT_EQ(fields[0].name, "H\xC3\x96HE");
    }
}

TEST_F(AttributeTemplate, AFileTooLargeForATemplateIsAnError) {
    std::string path = folder.Write("ATP/BIG.ATP", std::string(largestTemplate + 1, ','));
    EXPECT_THROW(ReadAtpFields(path), platform::ReadError);
    EXPECT_THROW(ReadAtpStyle(run, "BIG"), platform::ReadError);
    EXPECT_TRUE(ReadAtpFields(folder / "ATP/MISSING.ATP").empty());
}

TEST_F(AttributeTemplate, ALocalTemplateThatIsNotEmptyGoesFirst) {
    const std::string shared = run.Settings().ATPDirectory + "\\FENCE.ATP";
    EXPECT_EQ(AtpPathFor(run, "FENCE"), shared);
    folder.Write("LocalATPs/FENCE.ATP", "");
    EXPECT_EQ(AtpPathFor(run, "FENCE"), shared);
    std::filesystem::remove(folder / "LocalATPs/FENCE.ATP");
    folder.Write("LocalATPs/fence.atp", "[26,09]");
    EXPECT_EQ(AtpPathFor(run, "FENCE"), run.Settings().ConfigFolder + "\\LocalATPs\\FENCE.ATP");
}

TEST_F(AttributeTemplate, CodesDoNotLeadOutOfTheFolders) {
    for (std::string code : {"../SECRET", "..\\SECRET", "a/../../SECRET"}) {
        EXPECT_EQ(AtpPathFor(run, code).find(run.Settings().ATPDirectory), 0U) << code;
        folder.Write("SECRET.ATP", "'STYLE=secret\r\n");
        EXPECT_EQ(ReadAtpStyle(run, code), "") << code;
        folder.Write("SECRET.ATP", "MH2=");
        EXPECT_EQ(ResolveAtpAlias(run, code), code);
    }
}

TEST_F(AttributeTemplate, TheLastStyleLineOfTheSharedTemplateCounts) {
    folder.Write("LocalATPs/V.ATP", "'STYLE=local\r\n");
    folder.Write("ATP/V.ATP", "[26,09]\r\n'STYLE=0,OLD,1\r\n 'STYLE=no\r\n'STYLE=0,VALVE,255\r\n'other\r\n");
    EXPECT_EQ(ReadAtpStyle(run, "V"), "0,VALVE,255");
    EXPECT_EQ(ReadAtpStyle(run, "NONE"), "");
}

TEST_F(AttributeTemplate, ASmallFileWithAnEqualsSignIsAnAlias) {
    const std::pair<std::string, std::string> cases[] = {
        {"MH2=", "MH2"},
        {"MH2=x\r\n", "MH2"},
        {"MH2", "CODE"},
        {"", "CODE"},
        {"M\r\nH2=", "CODE"},
        {"1234567890123456=", "CODE"},
        {"=", ""},
        {"123456789012345=", "123456789012345"},
    };
    for (const auto& [content, code] : cases) {
        folder.Write("ATP/CODE.ATP", content);
        EXPECT_EQ(ResolveAtpAlias(run, "CODE"), code) << content;
    }
}

TEST_F(AttributeTemplate, WritesTheFieldsOfAnEntity) {
    WriteAtpFromFields(folder / "new/A.ATP", {});
    EXPECT_EQ(Read("new/A.ATP"), "[26,09]\r\n[01,01]HANDLE    ,C32.00\r\n");
    WriteAtpFromFields(folder / "new/A.ATP", std::vector<std::string>{"NAME", "TWELVE LONG."});
    EXPECT_EQ(Read("new/A.ATP"), "[26,09]\r\n[01,01]NAME      ,C32.00\r\n[01,02]TWELVE LONG.,C32.00\r\n");
}

TEST_F(AttributeTemplate, NamesReadBackWithoutWhatIsTemplateSyntax) {
    const std::pair<std::string, std::string> names[] = {{"H\xC3\x96HE", "H\xC3\x96HE"},
                                                         {"\xC3\x83\xC2\xA9", "\xC3\x83\xC2\xA9"},
                                                         {"\xE5\xB1\xB1", "\xE5\xB1\xB1"},
                                                         {"a,b=c<d]e", "a_b_c_d_e"},
                                                         {"NULL", "NULL_"},
                                                         {"x\r\ny", "x__y"}};
    for (const auto& [name, again] : names) {
        WriteAtpFromFields(folder / "ATP/A.ATP", std::vector<std::string>{"FIRST", name});
        auto fields = ReadAtpFields(folder / "ATP/A.ATP");
        ASSERT_EQ(fields.size(), 2U) << name;
        EXPECT_EQ(fields[1].name, again);
    }
}

}  // namespace
}  // namespace vexlator::drawing
