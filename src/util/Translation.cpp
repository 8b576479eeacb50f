// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "util/Translation.h"

#include "platform/CodePages.h"
#include "platform/Files.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>
#include <array>

namespace vexlator::util {

namespace {

constexpr std::string_view mark = "|||";

void AddLine(std::string_view languageFile, std::string_view text, std::string_view oldContent) {
    std::string line(text);
    line.append(mark).append(text).append("\r\n");
    if (!platform::IsUtf8(oldContent)) line = platform::Windows1252FromUtf8(line);
    bool lineIsOpen = !oldContent.empty() && oldContent.back() != '\n' && oldContent.back() != '\r';
    try {
        platform::AppendToFile(languageFile, lineIsOpen ? "\r\n" + line : line);
    } catch (const platform::WriteError&) {
        // The collection of missing texts is a help for translators, not a need.
    }
}

}  // namespace

std::string TranslateText(std::string_view text, std::string_view languageFile) {
    bool fitsLine = !text.empty() && text.find_first_of("\r\n") == std::string_view::npos;
    if (!fitsLine || languageFile.empty()) return std::string(text);
    auto file = OpenFile(languageFile);
    std::string_view content = file ? file->Text() : std::string_view();
    std::string decoded = platform::DecodeText(content);
    for (LineReader lines(decoded); !lines.AtEnd();) {
        std::string_view line = lines.ReadTextLine();
        if (line.starts_with(text) && line.substr(text.size()).starts_with(mark))
            return std::string(line.substr(text.size() + mark.size()));
    }
    AddLine(languageFile, text, content);
    return std::string(text);
}

void TranslateCaptions(std::span<Caption> captions, std::string_view languageFile) {
    static constexpr std::array<std::string_view, 4> kinds = {"Label", "lbl", "chk", "btn"};
    if (InStrNoCase(FileNameOf(languageFile), ".GB") > 0) return;
    for (Caption& caption : captions) {
        auto begins = [&](std::string_view kind) { return caption.control.starts_with(kind); };
        if (std::any_of(kinds.begin(), kinds.end(), begins))
            caption.text = TranslateText(caption.text, languageFile);
    }
}

}  // namespace vexlator::util
