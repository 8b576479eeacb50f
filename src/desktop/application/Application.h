// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/application/Conversation.h"

class QApplication;
class QWidget;

namespace vexlator::desktop {

/// False where a window could not be shown: no display that answers, and no other platform was asked for.
bool HasDisplay();

/// Name, icon, the language of the person, and dark colours where the desktop says so or `dark` does.
void SetUp(QApplication& application, bool dark = false);

/// Answers in boxes over a window that there may not be yet. `report` gets plain lines.
Listener BoxesOver(const std::function<QWidget*()>& window, std::function<void(const QString&)> report);

}  // namespace vexlator::desktop
