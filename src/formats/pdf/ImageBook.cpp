// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/pdf/ImageBook.h"

#include "formats/image/Jpeg.h"

namespace vexlator::formats {

namespace {

constexpr double usualPixelsPerInch = 200, pointsPerInch = 72;

std::string ImageEntries(const JpegInfo& info) {
    std::string_view space = info.components == 1   ? "/DeviceGray"
                             : info.components == 3 ? "/DeviceRGB"
                                                    : "/DeviceCMYK";
    std::string entries = "/Type /XObject /Subtype /Image /Width " + std::to_string(info.width) +
                          " /Height " + std::to_string(info.height) +
                          " /BitsPerComponent 8 /Filter /DCTDecode /ColorSpace " + std::string(space);
    if (info.isInverted) entries += " /Decode [1 0 1 0 1 0 1 0]";
    return entries;
}

}  // namespace

ImageBook::ImageBook(platform::OutputFile& file) : writer_(file), pageTree_(writer_.NewObject()) {}

void ImageBook::AddPage(std::string_view jpeg, const Page& page) {
    ProveJpeg(jpeg);
    JpegInfo info = ReadJpegInfo(jpeg);
    double width = page.width > 0 ? page.width : info.width * pointsPerInch / usualPixelsPerInch;
    double height = page.height > 0 ? page.height : info.height * pointsPerInch / usualPixelsPerInch;
    int image = writer_.NewObject(), content = writer_.NewObject(), number = writer_.NewObject();
    writer_.WriteStream(image, ImageEntries(info), jpeg);
    writer_.WriteStream(content, "",
                        "q " + PdfNumber(width) + " 0 0 " + PdfNumber(height) + " 0 0 cm /Im Do Q");
    std::string dictionary = "<< /Type /Page /Parent " + PdfReference(pageTree_) + " /MediaBox [0 0 " +
                             PdfNumber(width) + " " + PdfNumber(height) + "] /Contents " +
                             PdfReference(content) + " /Resources << /XObject << /Im " + PdfReference(image) +
                             " >> >>";
    if (page.place) dictionary += " " + PdfViewport(*page.place);
    writer_.Write(number, dictionary + " >>");
    pages_.push_back(number);
    if (!page.title.empty()) entries_.push_back({page.title, number});
}

void ImageBook::Finish(std::string_view title) {
    std::string kids;
    for (int page : pages_) kids += " " + PdfReference(page);
    writer_.Write(pageTree_,
                  "<< /Type /Pages /Count " + std::to_string(pages_.size()) + " /Kids [" + kids + " ] >>");
    int outline = PdfOutline::Write(
        entries_, [this] { return writer_.NewObject(); },
        [this](int number, std::string_view content) { writer_.Write(number, content); });
    int catalogue = writer_.NewObject(), information = writer_.NewObject();
    std::string entries = "<< /Type /Catalog /Pages " + PdfReference(pageTree_);
    if (outline > 0) entries += " /Outlines " + PdfReference(outline) + " /PageMode /UseOutlines";
    writer_.Write(catalogue, entries + " >>");
    writer_.Write(information, "<< /Title " + PdfText(title) + " /Producer (Vexlator) >>");
    writer_.Finish(catalogue, information);
}

}  // namespace vexlator::formats
