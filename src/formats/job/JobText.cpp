// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/job/JobText.h"

#include "formats/SourceText.h"
#include "platform/CodePages.h"
#include "util/Files.h"

namespace vexlator::formats {

JobText::JobText(const platform::MappedFile& file) {
    constexpr std::string_view zipSignature = "PK\x03\x04";
    if (file.Text().starts_with(zipSignature))
        throw platform::ReadError("", "", "is a ZIP archive; unpack it and import the job inside");
    text_ = TextBehindMark(file.Text(), decoded_);
    if (platform::IsUtf8(text_)) return;
    for (util::LineReader lines(text_); !lines.AtEnd();) {
        std::string_view line = lines.ReadTextLine();
        CheckLineLength(line, lines.Line());
    }
    decoded_.reserve(text_.size() + text_.size() / 8);
    platform::AppendUtf8FromWindows1252(decoded_, text_);
    text_ = decoded_;
}

}  // namespace vexlator::formats
