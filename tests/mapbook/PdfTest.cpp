// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/image/Jpeg.h"
#include "formats/pdf/ImageBook.h"
#include "formats/pdf/PdfSupplement.h"
#include "mapbook/pages/PageList.h"
#include "platform/Errors.h"
#include "support/TempFolder.h"

#include <QBuffer>
#include <QImage>
#include <gtest/gtest.h>

namespace vexlator::formats {
namespace {

std::string JpegBytes() {
    QImage image(40, 30, QImage::Format_RGB32);
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 40; ++x) image.setPixel(x, y, qRgb(x * 6, y * 8, (x * y) % 255));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "jpeg");
    return {buffer.data().constData(), std::size_t(buffer.data().size())};
}

TEST(Jpeg, KeepsItsBytesUnderAComment) {
    std::string jpeg = JpegBytes(), marked = WithJpegComment(jpeg, "page 7");
    JpegInfo info = ReadJpegInfo(marked);
    EXPECT_EQ(info.comment, "page 7");
    EXPECT_EQ(info.width, 40);
    EXPECT_EQ(info.height, 30);
    ProveJpeg(marked);
    EXPECT_TRUE(marked.ends_with(jpeg.substr(2)));
}

TEST(Jpeg, CutOrChangedIsRefusedOrReadNeverMore) {
    std::string jpeg = WithJpegComment(JpegBytes(), "x");
    for (std::size_t size = 0; size + 2 < jpeg.size(); ++size)
        EXPECT_THROW(ProveJpeg(jpeg.substr(0, size)), platform::ReadError) << size;
    for (std::size_t i = 0; i < jpeg.size(); ++i) {
        std::string changed = jpeg;
        changed[i] = static_cast<char>(changed[i] ^ 0xFF);
        try {
            ProveJpeg(changed);
        } catch (const platform::ReadError&) {
        }
    }
}

TEST(Pdf, SupplementKeepsTheFileAndRefusesOthers) {
    test::TempFolder folder;
    platform::OutputFile file(folder / "a.pdf");
    ImageBook book(file);
    for (int page = 0; page < 3; ++page) book.AddPage(JpegBytes(), {.title = ""});
    book.Finish("Städte (neu)");
    file.Commit();
    std::string pdf = test::TempFolder::Read(folder / "a.pdf");
    PdfPlace place{.right = 10, .top = 20, .corners = {1, 2, 3, 4, 5, 6, 7, 8}, .system = "GEOGCS[\"(x\"]"};
    std::string more = PdfSupplementFor(pdf, {{"one", place}, {"zwei: ä", {}}, {"(three", place}});
    EXPECT_NE(more.find("/Prev"), std::string::npos);
    EXPECT_EQ(more.find("startxref\n" + std::to_string(pdf.size() + more.find("xref\n")) + "\n"),
              more.rfind("startxref"));
    EXPECT_THROW(PdfSupplementFor(pdf, {{"one", {}}}), platform::ReadError);
    for (std::size_t size = 0; size < pdf.size(); size += 7) {
        try {
            PdfSupplementFor(pdf.substr(0, size), {{"one", {}}, {"two", {}}, {"three", {}}});
        } catch (const platform::ReadError&) {
        }
    }
}

TEST(PageList, ReadsWhatItWritesAndNamesWrongNumbers) {
    mapbook::PageList list{.title = "Job", .system = "PROJCS[\"a\"]", .isProjected = false, .pages = {}};
    list.pages.push_back({.image = "/a/x(1).JPG",
                          .title = "1",
                          .width = 297,
                          .height = 210,
                          .mapRight = 7.5,
                          .corners = std::array<double, 8>{1, 2, 3, 4, 5, 6, 7, 8.5}});
    list.pages.push_back({.image = "/a/x(2).JPG", .title = "2", .width = 297, .height = 210});
    mapbook::PageList read = mapbook::ReadPageList(mapbook::PageListText(list));
    ASSERT_EQ(read.pages.size(), 2);
    EXPECT_EQ(read.pages[0].corners, list.pages[0].corners);
    EXPECT_FALSE(read.pages[1].corners || read.isProjected);
    EXPECT_NEAR(read.PlaceOf(read.pages[0])->right, 7.5 * 72 / 25.4, 1e-9);
    for (const char* wrong : {"Paper=297", "Paper=0,5", "Paper=a,5", "Map=1,2,3,nan", "Corners=1,2,3"})
        EXPECT_THROW(mapbook::ReadPageList("[PAGE1]\nImage=a\n" + std::string(wrong)), platform::ReadError)
            << wrong;
}

}  // namespace
}  // namespace vexlator::formats
