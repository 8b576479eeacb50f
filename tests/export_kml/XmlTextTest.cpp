// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/xml/XmlText.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace vexlator::formats {
namespace {

using namespace std::string_literals;
using test::TempFolder;

struct Escaped {
    std::string text;
    std::uint64_t replaced;
};

Escaped Escape(std::string_view text) {
    TempFolder folder;
    platform::OutputFile file(folder / "text");
    std::uint64_t replaced = WriteXmlText(file, text);
    file.Commit();
    return {TempFolder::Read(folder / "text"), replaced};
}

TEST(XmlText, HoldsAnyText) {
    const struct {
        std::string text, escaped;
        std::uint64_t replaced;
    } cases[] = {
        {"", "", 0},
        {"a & b < c > \"d\" 'e'", "a &amp; b &lt; c &gt; &quot;d&quot; 'e'", 0},
        {"]]></description>&amp;", "]]&gt;&lt;/description&gt;&amp;amp;", 0},
        {"tab\tline\r\nend", "tab\tline&#13;\nend", 0},
        {"nul\0bell\x07"s, "nul?bell?", 2},
        {"caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80", "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80", 0},
        {"\xEF\xBF\xBD \xEF\xBF\xBE \xEF\xBF\xBF", "\xEF\xBF\xBD ? ?", 2},
        {"caf\xE9 & \x80", "caf\xC3\xA9 &amp; \xE2\x82\xAC", 0},  // Windows-1252
        {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC", 0},      // an unpaired surrogate is not UTF-8
        {"cut \xE2\x82", "cut \xC3\xA2\xE2\x80\x9A", 0},
    };
    for (const auto& expected : cases) {
        Escaped found = Escape(expected.text);
        EXPECT_EQ(found.text, expected.escaped);
        EXPECT_EQ(found.replaced, expected.replaced) << expected.text;
    }
}

}  // namespace
}  // namespace vexlator::formats
