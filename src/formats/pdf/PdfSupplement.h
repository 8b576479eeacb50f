// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/pdf/PdfPage.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::formats {

/// What a PDF file of another writer gets for one of its pages.
struct PdfPageSupplement {
    std::string title;
    std::optional<PdfPlace> place;
};

/// The bytes that, appended to a PDF file, give its pages a list with their titles and places on earth (an
/// incremental update, ISO 32000-1, 7.5.6). The file is one of a writer that we know: its objects are plain,
/// its table is no stream, its pages are in one list.
/// @throws platform::ReadError if it is another one, or does not have that many pages
std::string PdfSupplementFor(std::string_view pdf, const std::vector<PdfPageSupplement>& pages);

}  // namespace vexlator::formats
