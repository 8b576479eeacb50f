// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "mapbook/BookPlan.h"

#include <string>
#include <string_view>

/// Comments in page images that tell what they were made of.
namespace vexlator::mapbook {

/// The comment of a page: the same only for the same bytes of drawing, symbols and background, the same plan
/// and the same program.
class PageStamps {
public:
    /// @throws platform::ReadError if the drawing cannot be read
    explicit PageStamps(const BookPlan& plan);
    /// @param background native path of the page's own map; "": none
    std::string Of(std::string_view page, const std::string& background = "") const;

private:
    std::string source_;
};

/// Whether an image is an undamaged one with this comment.
bool HasStamp(const std::string& image, std::string_view stamp);
/// Whether an image is a page of any book of ours.
bool IsPageImage(const std::string& image);

}  // namespace vexlator::mapbook
