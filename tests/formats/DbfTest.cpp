// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/dbf/DbfTable.h"
#include "formats/dbf/DbfWriter.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace vexlator::formats {
namespace {

using test::TempFolder;
using Encoding = DbfWriter::Encoding;

std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    for (int value : values) bytes += static_cast<char>(value);
    return bytes;
}

TEST(DbfWriter, WritesTheDocumentedBytes) {
    TempFolder folder;
    platform::OutputFile file(folder / "a.dbf");
    DbfWriter writer(file, {{"NO", 'N', 4, 1}, {"A NAME OF SOME LENGTH", 'C', 3, 0}}, Encoding::Ascii);
    writer.BeginRecord();
    writer.SetField(0, " 7.5 ");
    writer.SetField(1, "'ab'");
    writer.SetField(2, "no such column");
    writer.EndRecord();
    writer.BeginRecord();
    writer.SetField(1, "abcd");
    writer.EndRecord();
    writer.Finish();
    file.Commit();
    std::string expected = Bytes({3, 99, 10, 12, 2, 0, 0, 0, 97, 0, 8, 0}) + std::string(20, '\0') +
                           std::string("NO\0        N\0\0\0\0", 16) + Bytes({4, 1}) + std::string(14, '\0') +
                           std::string("A_NAME_OF_\0C\0\0\0\0", 16) + Bytes({3, 0}) + std::string(14, '\0') +
                           Bytes({13}) + " 7.5 ab      abc" + Bytes({26});
    EXPECT_EQ(TempFolder::Read(folder / "a.dbf"), expected);
    EXPECT_EQ(writer.ValuesCut(), (std::vector<std::uint64_t>{0, 1}));
}

TEST(DbfWriter, RefusesTablesThatWouldPassTwoGigabytes) {
    TempFolder folder;
    platform::OutputFile file(folder / "a.dbf");
    std::vector<DbfColumn> columns{{"N", 'C', 99, 0}};
    EXPECT_NO_THROW(DbfWriter(file, columns, Encoding::Ascii, 21000000));
    EXPECT_THROW(DbfWriter(file, columns, Encoding::Ascii, 21474837), platform::WriteError);
}

TEST(DbfWriter, CutsAtWholeCharactersInItsEncoding) {
    struct Case {
        Encoding encoding;
        std::string value, written;
        bool cut;
    };
    const Case cases[] = {{Encoding::Utf8, "caf\xC3\xA9s", "caf ", true},
                          {Encoding::Utf8, "a\xC3\xA9 b", "a\xC3\xA9 ", true},
                          {Encoding::Windows1252, "caf\xC3\xA9", "caf\xE9", false},
                          {Encoding::Windows1252, "\xE2\x82\xAC 1", "\x80 1 ", false},
                          {Encoding::Ascii, "''", "    ", false},
                          {Encoding::Ascii, "'", "'   ", false}};
    for (const Case& c : cases) {
        TempFolder folder;
        platform::OutputFile file(folder / "a.dbf");
        DbfWriter writer(file, {{"N", 'C', 4, 0}}, c.encoding);
        writer.BeginRecord();
        writer.SetField(0, c.value);
        writer.EndRecord();
        writer.Finish();
        file.Commit();
        EXPECT_EQ(TempFolder::Read(folder / "a.dbf").substr(66, 4), c.written);
        EXPECT_EQ(writer.ValuesCut()[0], c.cut ? 1U : 0U);
    }
}

/// A table with one text column of 4 bytes.
std::string Table(const std::string& records, int headerLength = 65, int recordLength = 5, int width = 4) {
    std::string bytes =
        Bytes({3, 24, 1, 1, 9, 0, 0, 0, headerLength % 256, headerLength / 256, recordLength, 0}) +
        std::string(20, '\0') + std::string("NAME\0xxxxxxC\0\0\0\0", 16) + Bytes({width, 0}) +
        std::string(14, '\0') + Bytes({13});
    return bytes + records;
}

std::span<const std::byte> AsBytes(const std::string& text) {
    return std::as_bytes(std::span(text));
}

TEST(DbfTable, ReadsWhatIsThere) {
    std::string bytes = Table(std::string(" ab  *\0c\0\0 x", 12));
    DbfTable table(AsBytes(bytes));
    ASSERT_EQ(table.Fields().size(), 1U);
    EXPECT_EQ(table.Fields()[0].name, "NAME");
    auto value = [&](std::int64_t n) { return DbfTable::Value(table.Record(n), table.Fields()[0]); };
    EXPECT_EQ(value(1), "ab");
    EXPECT_EQ(value(2), "c");  // deleted records are read, NULs become blanks
    EXPECT_EQ(value(3), "x");  // truncated at the end of the file
    EXPECT_EQ(value(4), "");
    EXPECT_EQ(value(0), "");
    EXPECT_EQ(value(-2147483648LL), "");
    EXPECT_EQ(table.RecordCount(), 2U);
    bytes.replace(32, 11, "ELEVENCHARS");
    EXPECT_EQ(DbfTable(AsBytes(bytes)).Fields()[0].name, "ELEVENCHAR");
}

TEST(DbfTable, DamagedHeadersAreRefusedOrHarmless) {
    for (std::size_t size : {0U, 1U, 31U, 64U}) {
        std::string bytes = Table("").substr(0, size);
        EXPECT_THROW(DbfTable{AsBytes(bytes)}, platform::ReadError) << size;
    }
    std::string noRecords = Table(" abcd", 65, 0);
    EXPECT_EQ(DbfTable(AsBytes(noRecords)).Record(1), "");
    std::string wide = Table(" abcd", 65, 5, 255);
    DbfTable table(AsBytes(wide));
    EXPECT_EQ(DbfTable::Value(table.Record(1), table.Fields()[0]), "abcd");
}

TEST(DbfEncoding, TheCpgFileGoesBeforeTheLanguageByte) {
    EXPECT_EQ(DbfEncoding("UTF-8\r\n", 0x57), "UTF-8");
    EXPECT_EQ(DbfEncoding("", 0x4F), "CP950");
    EXPECT_EQ(DbfEncoding("  \n", 0xC9), "CP1251");
    EXPECT_EQ(DbfEncoding("", 0), "CP1252");
    EXPECT_EQ(DbfEncoding("", 0xFE), "CP1252");
}

}  // namespace
}  // namespace vexlator::formats
