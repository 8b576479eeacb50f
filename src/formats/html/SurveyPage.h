// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"

#include <cstdint>
#include <string_view>

namespace vexlator::formats {

/// Writes a page of features (HTML, with its style and pictures inside) into a file that the caller commits.
/// A feature is BeginFeature(), its values, its pictures, EndFeature(). It prints on A4, no feature broken
/// where it fits on a page.
/// @throws platform::WriteError
class SurveyPage {
public:
    SurveyPage(platform::OutputFile& file, std::string_view title, std::string_view subtitle);

    void BeginFeature(std::string_view heading);
    /// Returns the number of characters that a page cannot hold; they become "?".
    std::uint64_t AddValue(std::string_view name, std::string_view value);
    /// The bytes of a JPEG or BMP file. False, and nothing is written, for other bytes.
    bool AddPicture(std::string_view bytes, std::string_view caption);
    /// A picture that is missing.
    void AddMissing(std::string_view caption);
    void EndFeature();
    void Finish();

private:
    void EndTable();

    platform::OutputFile& file_;
    bool inTable_ = false;
};

}  // namespace vexlator::formats
