// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/Bytes.h"
#include "formats/image/Thumbnail.h"
#include "support/Errors.h"
#include "support/Pictures.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <random>

namespace vexlator::formats {
namespace {

using test::JpegOf;
using test::TempFolder;

std::int32_t Int(const std::string& bmp, std::size_t at) {
    return LittleAt<std::int32_t>(std::as_bytes(std::span(bmp)), at);
}

/// Width, height and the colour of the first pixel from the top left, "blue,green,red".
std::string Summary(const std::string& bmp) {
    std::size_t row = (static_cast<std::size_t>(Int(bmp, 18)) * 3 + 3) / 4 * 4;
    std::size_t top = 54 + row * static_cast<std::size_t>(Int(bmp, 22) - 1);
    EXPECT_EQ(bmp.size(), 54 + row * static_cast<std::size_t>(Int(bmp, 22)));
    EXPECT_EQ(static_cast<std::size_t>(Int(bmp, 2)), bmp.size());
    std::string text = std::to_string(Int(bmp, 18)) + "x" + std::to_string(Int(bmp, 22));
    for (std::size_t c = 0; c < 3; ++c)
        text += (c == 0 ? " " : ",") + std::to_string(static_cast<unsigned char>(bmp[top + c]));
    return text;
}

/// Why these bytes have no thumbnail; "" if they have one.
std::string Refusal(const std::string& bytes) {
    TempFolder folder;
    std::string path = folder.Write("a.jpg", bytes), error = test::ErrorOf([&] {
                                                         ThumbnailBmp(path, {240, 180});
                                                     });
    return error.empty() ? "" : error.substr(path.size() + 2);
}

TEST(Thumbnail, KeepsProportionsAndColours) {
    TempFolder folder;
    const struct {
        int width, height;
        std::string wanted;
    } cases[] = {
        {4000, 3000, "240x180"}, {3000, 4000, "135x180"}, {241, 100, "240x99"},
        {100, 50, "100x50"},     {1, 1, "1x1"},           {6000, 1, "240x1"},
    };
    for (const auto& [width, height, wanted] : cases) {
        std::string jpeg = folder.Write("a.jpg", JpegOf(width, height));
        EXPECT_EQ(Summary(ThumbnailBmp(jpeg, {240, 180})).substr(0, wanted.size()), wanted);
    }
    // A thumbnail is itself a picture that can be reduced. The top half of the picture is red.
    std::string large = ThumbnailBmp(folder.Write("b.jpg", JpegOf(2000, 1000)), {200, 200});
    EXPECT_EQ(Summary(large), "200x100 0,0,254");
    EXPECT_EQ(Summary(ThumbnailBmp(folder.Write("b.bmp", large), {10, 10})), "10x5 0,0,254");
}

TEST(Thumbnail, RefusesWhatCannotBeShown) {
    std::string jpeg = JpegOf(640, 480), huge = jpeg;
    // The size in its header: height and width follow the frame's mark.
    huge.replace(jpeg.find("\xFF\xC0") + 5, 4, "\xFF\xDC\xFF\xDC");
    const std::pair<std::string, std::string> cases[] = {
        {"", "is neither a JPEG nor a BMP file"},
        {"GIF89a", "is neither a JPEG nor a BMP file"},
        {"\xFF\xD8", "damaged: it holds no picture"},
        {huge, "a picture of 65500 x 65500 pixels is too large"},
        {test::BmpHeader(8001, 8000), "a picture of 8001 x 8000 pixels is too large"},
        {test::BmpHeader(8, 8).substr(0, 53), "damaged BMP: it ends in its header"},
        {test::BmpHeader(-1, 5), "damaged: it holds no picture"},
        {test::BmpHeader(80, 80), "damaged BMP: it ends before its last pixel"},
    };
    for (const auto& [bytes, reason] : cases) EXPECT_EQ(Refusal(bytes), reason);
    EXPECT_EQ(Refusal(jpeg), "");
    EXPECT_TRUE(Refusal(jpeg.substr(0, jpeg.size() / 2)).starts_with("damaged JPEG: "));
    EXPECT_TRUE(Refusal(test::BmpHeader(80, 80) + std::string(6400, 'x')).starts_with("damaged BMP: "));
}

TEST(Thumbnail, SurvivesDamagedBytes) {
    TempFolder folder;
    std::string jpeg = JpegOf(64, 48), bmp = ThumbnailBmp(folder.Write("a.jpg", jpeg), {64, 48});
    std::mt19937 random(7);
    for (int i = 0; i < 400; ++i) {
        std::string bytes = i % 2 ? jpeg : bmp;
        for (int n = 0; n < 3; ++n)
            bytes[random() % (i % 4 < 2 ? 64 : bytes.size())] = static_cast<char>(random());
        Refusal(bytes);
    }
}

}  // namespace
}  // namespace vexlator::formats
