// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "mapbook/BookPlan.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace vexlator::mapbook {

struct BookResult {
    std::uint64_t layers = 0, features = 0;  ///< that the whole drawing shows
    std::size_t pages = 0;
    std::size_t keptImages = 0;  ///< page images that were there already
};

/// Whom the work is told to; called in the calling thread.
struct BookListener {
    std::function<void(std::size_t done, std::size_t total)> progress;
    std::function<void(std::string_view)> tell;  ///< a line about contents that are missing
};

/// Draws a book as its plan says: page images by several threads, the PDF file beside them. All files appear
/// together. Images that a former run has made of the same drawing, plan and program stay; those of pages
/// that the book no longer has are removed. Needs a QGuiApplication.
/// @throws platform::ReadError, platform::WriteError, platform::Stopped; then the old book is whole
BookResult WriteBook(BookPlan plan, const BookListener& listener);

}  // namespace vexlator::mapbook
