// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/shapefile/ShapefileReader.h"
#include "formats/shapefile/ShapefileWriter.h"
#include "support/Errors.h"
#include "support/TempFolder.h"

#include <cstring>
#include <gtest/gtest.h>
#include <vector>

namespace vexlator::formats {
namespace {

using test::TempFolder;
using util::PlanePoint;

std::string Hex(const std::string& bytes) {
    std::string text;
    for (char c : bytes) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned char>(c));
        text += digits;
    }
    return text;
}

std::string Doubles(std::vector<double> values) {
    return {reinterpret_cast<const char*>(values.data()), values.size() * 8};
}

/// The bytes that a writer makes of some records.
struct Files {
    template <typename Add>
    explicit Files(Add add) {
        TempFolder folder;
        platform::OutputFile shpFile(folder / "a.shp"), shxFile(folder / "a.shx");
        ShapefileWriter writer(shpFile, shxFile);
        add(writer);
        writer.Finish();
        shpFile.Commit();
        shxFile.Commit();
        shp = TempFolder::Read(folder / "a.shp");
        shx = TempFolder::Read(folder / "a.shx");
    }
    ShapefileReader Reader() const { return {std::as_bytes(std::span(shp)), std::as_bytes(std::span(shx))}; }
    std::string shp, shx;
};

TEST(ShapefileWriter, WritesTheDocumentedBytes) {
    Files files([](ShapefileWriter& writer) {
        writer.AddPoint({5, 7});
        writer.AddPoint({0, 900});  // a coordinate of 0 does not move the box
        std::vector<PlanePoint> ring{{1, 2}, {1, 4}, {3, 4}, {1, 2}};
        writer.AddPolygon(ring);
        writer.AddPolyline(ring);  // does not change the header's type 5
    });
    std::string fixed = Hex(Doubles({1, 2, 5, 7, 9999999, 9999999, -9999999, -9999999}));
    EXPECT_EQ(Hex(files.shp.substr(0, 100)),
              "0000270a" + std::string(40, '0') + "000000c6" + "e803000005000000" + fixed);
    EXPECT_EQ(Hex(files.shx.substr(24, 4)), "00000042");
    EXPECT_EQ(Hex(files.shp.substr(100, 28)), "000000010000000a01000000" + Hex(Doubles({5, 7})));
    std::string ring =
        Hex(Doubles({1, 2, 3, 4})) + "010000000400000000000000" + Hex(Doubles({1, 2, 1, 4, 3, 4, 1, 2}));
    EXPECT_EQ(Hex(files.shp.substr(156, 120)), "000000030000003805000000" + ring);
    EXPECT_EQ(Hex(files.shp.substr(276)), "000000040000003803000000" + ring);
    EXPECT_EQ(Hex(files.shx.substr(100)),
              "000000320000000a"
              "000000400000000a"
              "0000004e00000038"
              "0000008a00000038");
}

TEST(ShapefileWriter, WithoutRecordsTheBoxStaysOpen) {
    Files files([](ShapefileWriter&) {});
    EXPECT_EQ(files.shp.substr(36, 32), Doubles({9999999, 9999999, -9999999, -9999999}));
    EXPECT_EQ(files.shp.size(), 100U);
}

TEST(ShapefileReader, DamageIsRefusedWithItsPlace) {
    const Files whole([](ShapefileWriter& writer) {
        writer.AddPolyline(std::vector<PlanePoint>{{1, 2}, {3, 4}});
        writer.AddPolyline(std::vector<PlanePoint>{{1, 2}, {3, 4}});
    });
    struct Case {
        std::size_t offset;
        std::string bytes, reason;
    };
    const std::string infinity = Doubles({std::numeric_limits<double>::infinity()});
    const Case cases[] = {
        {144, std::string("\xFF\xFF\xFF\x7F", 4), "2147483647 parts announced, 124 bytes left"},
        {148, std::string("\x09\0\0\0", 4), "9 points announced, 120 bytes left"},
        {152, std::string("\x03\0\0\0", 4), "part 1 starts at point 3 and ends at point 2"},
        {156, infinity, "a coordinate is not a number"},
    };
    for (const Case& c : cases) {
        Files files = whole;
        files.shp.replace(c.offset, c.bytes.size(), c.bytes);
        ShapeRecord record;
        EXPECT_EQ(test::ErrorOf([&] { files.Reader().Next(record); }), "byte 100, record 1: " + c.reason);
    }
}

TEST(ShapefileReader, AnIndexCannotMultiplyRecords) {
    Files files([](ShapefileWriter& writer) { writer.AddPolyline(std::vector<PlanePoint>{{1, 2}, {3, 4}}); });
    for (int i = 0; i < 10; ++i) files.shx += files.shx.substr(100, 8);
    files.shx.replace(24, 4, std::string(4, '\0'));
    ShapefileReader reader = files.Reader();
    ShapeRecord record;
    EXPECT_THROW(while (reader.Next(record)){}, platform::ReadError);
}

TEST(ShapefileReader, TheIndexEndsTheReading) {
    Files files([](ShapefileWriter& writer) {
        for (int i = 1; i <= 3; ++i) writer.AddPoint({double(i), 1});
    });
    auto count = [](const Files& some) {
        ShapefileReader reader = some.Reader();
        ShapeRecord record;
        int records = 0;
        while (reader.Next(record)) ++records;
        return records;
    };
    EXPECT_EQ(count(files), 3);
    Files zero = files;
    zero.shx.replace(108, 4, std::string(4, '\0'));
    EXPECT_EQ(count(zero), 1);
    Files longer = files;  // entries after the end in the header
    longer.shx += longer.shx.substr(100, 16);
    EXPECT_EQ(count(longer), 3);
    Files unsure = files;  // an impossible header
    unsure.shx.replace(24, 4, std::string(4, '\0'));
    EXPECT_EQ(count(unsure), 3);
    Files empty = files;
    empty.shx.clear();
    EXPECT_EQ(count(empty), 0);
}

}  // namespace
}  // namespace vexlator::formats
