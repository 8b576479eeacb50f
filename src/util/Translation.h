// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

/// Texts in the user's language. A language file holds lines of the form text|||translation, in UTF-8 or
/// Windows-1252.
namespace vexlator::util {

/// The translation of a text. A text that the file lacks is added to it as text|||text, so that the file
/// collects what is still to be translated, and returned unchanged; so is a text that no line can hold (one
/// that is empty or has line ends), without being added. Never fails.
std::string TranslateText(std::string_view text, std::string_view languageFile);

struct Caption {
    std::string control;  ///< name of the control that shows it
    std::string text;
};
/// Translates the captions of labels, check boxes and buttons: controls whose names begin with "Label",
/// "lbl", "chk" or "btn". Does nothing when the language file's name contains ".GB" (in any letter case).
void TranslateCaptions(std::span<Caption> captions, std::string_view languageFile);

}  // namespace vexlator::util
