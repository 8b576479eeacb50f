// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/pdf/PdfPage.h"

#include "formats/pdf/PdfWriter.h"

namespace vexlator::formats {

std::string PdfViewport(const PdfPlace& place) {
    constexpr int degreeDecimals = 12;
    std::string text = "/VP [<< /Type /Viewport /Name (Map) /BBox [";
    for (double side : {place.left, place.bottom, place.right, place.top}) text += PdfNumber(side) + " ";
    text.back() = ']';
    text +=
        " /Measure << /Type /Measure /Subtype /GEO /Bounds [0 0 0 1 1 1 1 0] /LPTS [0 0 0 1 1 1 1 0] /GPTS [";
    for (double degrees : place.corners) text += PdfNumber(degrees, degreeDecimals) + " ";
    text.back() = ']';
    text += std::string(" /GCS << /Type /") + (place.isProjected ? "PROJCS" : "GEOGCS") + " /WKT ";
    return text + PdfBytes(place.system) + " >> >> >>]";
}

int PdfOutline::Write(const std::vector<Entry>& entries, const std::function<int()>& newObject,
                      const std::function<void(int, std::string_view)>& write) {
    if (entries.empty()) return 0;
    int root = newObject();
    std::vector<int> numbers;
    for (std::size_t i = 0; i < entries.size(); ++i) numbers.push_back(newObject());
    write(root, "<< /Type /Outlines /First " + PdfReference(numbers.front()) + " /Last " +
                    PdfReference(numbers.back()) + " /Count " + std::to_string(entries.size()) + " >>");
    for (std::size_t i = 0; i < entries.size(); ++i) {
        std::string item = "<< /Title " + PdfText(entries[i].title) + " /Parent " + PdfReference(root);
        if (i > 0) item += " /Prev " + PdfReference(numbers[i - 1]);
        if (i + 1 < entries.size()) item += " /Next " + PdfReference(numbers[i + 1]);
        write(numbers[i], item + " /Dest [" + PdfReference(entries[i].page) + " /Fit] >>");
    }
    return root;
}

}  // namespace vexlator::formats
