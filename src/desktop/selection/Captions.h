// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

class QWidget;

namespace vexlator::desktop {

/// Gives every named label, check box and button the caption that the language file has for it; what that
/// lacks is translated as the other texts of the windows are. The file collects captions without "&".
void TranslateWindow(QWidget& window, const std::string& languageFile);

}  // namespace vexlator::desktop
