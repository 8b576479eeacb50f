// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/pdf/PdfPage.h"
#include "formats/pdf/PdfWriter.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::formats {

/// Joins JPEG pictures into a PDF file, one a page. Their bytes stay as they are.
class ImageBook {
public:
    struct Page {
        std::string title;             ///< in the list of pages; "": it is not listed
        double width = 0, height = 0;  ///< points; 0: the pixels at 200 to the inch
        std::optional<PdfPlace> place = {};
    };

    /// The caller commits the file.
    explicit ImageBook(platform::OutputFile& file);
    /// @throws platform::ReadError for a picture that is no JPEG file or damaged; platform::WriteError
    void AddPage(std::string_view jpeg, const Page& page);
    /// Only once, after at least one page. @throws platform::WriteError
    void Finish(std::string_view title);

private:
    PdfWriter writer_;
    int pageTree_;
    std::vector<int> pages_;
    std::vector<PdfOutline::Entry> entries_;
};

}  // namespace vexlator::formats
