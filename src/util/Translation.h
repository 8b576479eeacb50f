// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

/// Texts in the user's language. A language file holds lines of the form text|||translation, in UTF-8 or
/// Windows-1252.
namespace vexlator::util {

/// The translation of a text. A missing text is added to the file as text|||text, so that the file collects
/// the texts for translators, and is returned unchanged. A text that does not fit a line (empty, or with line
/// ends) is returned unchanged and not added. Never fails.
std::string TranslateText(std::string_view text, std::string_view languageFile);

struct Caption {
    std::string control;  ///< name of the control with this caption
    std::string text;
};
/// Translates the captions of labels, check boxes and buttons: controls whose names begin with "Label",
/// "lbl", "chk" or "btn". Does nothing when the language file's name contains ".GB" (in any letter case).
void TranslateCaptions(std::span<Caption> captions, std::string_view languageFile);

}  // namespace vexlator::util
