// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/Bytes.h"
#include "formats/fmo/GeometryValue.h"
#include "platform/Errors.h"

#include <gtest/gtest.h>
#include <limits>

namespace vexlator::formats {

using Points = std::vector<util::PlanePoint>;

/// A value made from its numbers.
std::string ValueOf(std::initializer_list<float> numbers, std::size_t bytesBehind = 1) {
    std::string value;
    for (float number : numbers) {
        value.resize(value.size() + sizeof number);
        PutLittle(value.data() + value.size() - sizeof number, number);
    }
    return value + std::string(bytesBehind, '\0');
}

TEST(GeometryValue, PacksLinesAndClosesRings) {
    bool close = true;
    EXPECT_EQ(vArraytoBLOB(Points{{1, 2}, {3, 4}, {1.0011, 2}}, close),
              ValueOf({5, 0, 1, 2, 3, 4, 1.0011F, 2, 1, 2}));
    EXPECT_TRUE(close);
    EXPECT_EQ(vArraytoBLOB(Points{{1, 2}, {3, 4.5}, {1.0005, 2}}, close),
              ValueOf({4, 0, 1, 2, 3, 4.5, 1.0005F, 2}));
    EXPECT_FALSE(close) << "the ends meet";
}

TEST(GeometryValue, ReadsAllBytesButTheLast) {
    EXPECT_EQ(BLOBtoNodeMemory(ValueOf({4, 0, 1})), (std::vector<float>{4, 0, 1, 0}));
    EXPECT_EQ(BLOBtoNodeMemory(std::string(1, 'x')), (std::vector<float>{0}));
    EXPECT_EQ(BLOBtoNodeMemory("").size(), 0U);
    EXPECT_EQ(BlobToVertexList(ValueOf({3.4F, 0, 1, 2, 3, 4})), (Points{{1, 2}, {3, 4}}));
    EXPECT_EQ(BlobToVertexList(ValueOf({2, 0, 1, 2, 3, 4}, 9)), (Points{{1, 2}}));
    for (float none : {1.0F, 0.0F, -5.0F}) EXPECT_EQ(BlobToVertexList(ValueOf({none, 0})).size(), 0U);
}

TEST(GeometryValue, RefusesWhatItCannotHold) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    for (const std::string& value :
         {ValueOf({4, 0, 1, 2, 3, 4}), ValueOf({3, 0, 1, 2, 3, 4}, 0), ValueOf({1e30F, 0, 1, 2}),
          ValueOf({infinity, 0}), ValueOf({3, 0, 1, 2, 3, infinity}),
          ValueOf({3, 0, std::numeric_limits<float>::quiet_NaN(), 2, 3, 4})})
        EXPECT_THROW(BlobToVertexList(value), platform::ReadError);
    try {
        BlobToVertexList(ValueOf({9, 0, 1, 2, 3, 4}));
        ADD_FAILURE() << "no error";
    } catch (const platform::ReadError& error) {
        EXPECT_STREQ(error.what(), "byte 0: 8 vertices announced, room for 2");
    }
}

}  // namespace vexlator::formats
