// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/gml/GmlSchema.h"
#include "formats/meter/MeterFile.h"
#include "formats/xml/XmlName.h"

#include <gtest/gtest.h>

namespace vexlator::formats {

TEST(GmlValueType, IsTheNarrowestThatHoldsEveryValue) {
    struct Case {
        std::vector<std::string_view> values;
        std::string_view type;
    };
    const std::vector<Case> cases = {
        {{}, "string"},
        {{"", ""}, "string"},
        {{"1", "-2", "", "+3", "007"}, "int"},
        {{"2147483647", "-2147483648"}, "int"},
        {{"2147483648"}, "long"},
        {{"-2147483649", "1"}, "long"},
        {{"9223372036854775807"}, "long"},
        {{"9223372036854775808"}, "decimal"},
        {{"1", "2.5"}, "decimal"},
        {{".5", "5.", "-.5"}, "decimal"},
        {{"1e3", "2"}, "double"},
        {{"-1.5E-07", "99999999999999999999"}, "double"},
        {{"1", "x", "2"}, "string"},
        {{"."}, "string"},
        {{"-"}, "string"},
        {{"+-1"}, "string"},
        {{"1e"}, "string"},
        {{"e5"}, "string"},
        {{"1e5.5"}, "string"},
        {{" 1"}, "string"},
        {{"1,5"}, "string"},
        {{"nan"}, "string"},
        {{"0x10"}, "string"},
    };
    for (const Case& one : cases) {
        GmlValueType type(false), text(true);
        for (std::string_view value : one.values) {
            type.Add(value);
            text.Add(value);
        }
        EXPECT_EQ(type.Name(), one.type) << (one.values.empty() ? "" : one.values[0]);
        EXPECT_EQ(text.Name(), "string");
    }
}

TEST(XmlNames, AreValidAndUniqueWithoutRegardToLetterCase) {
    XmlNames names({"pos"});
    for (auto [text, name] :
         std::initializer_list<std::pair<std::string_view, std::string_view>>{{"NAME", "NAME"},
                                                                              {"name", "name_2"},
                                                                              {"pos", "pos_2"},
                                                                              {"POS", "POS"},
                                                                              {"2nd", "_2nd"},
                                                                              {"a b:c", "a_b_c"},
                                                                              {"Größe", "Größe"},
                                                                              {"Ж€", "Ж_"},
                                                                              {"xml\xFF", "xmlÿ"},
                                                                              {"", "_"},
                                                                              {"-", "_-"},
                                                                              {"?", "__2"}})
        EXPECT_EQ(names.Take(text), name) << text;
}

TEST(MeterPosition, IsAGridReferenceAndNothingElse) {
    for (std::string_view none : {"", "000000000000", "41234528765", "412345 287654", "-12345287654",
                                  "41234528765x", "1234567890123456789012345"})
        EXPECT_FALSE(MeterPosition(none)) << none;
    EXPECT_EQ(MeterPosition(" 412345287654 "), (util::PlanePoint{412345, 287654}));
    EXPECT_EQ(MeterPosition("4123451287654"), (util::PlanePoint{412345, 1287654}));
    EXPECT_EQ(MeterPosition("000000000001"), (util::PlanePoint{0, 1}));
}

}  // namespace vexlator::formats
