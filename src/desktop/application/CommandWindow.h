// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <functional>

class QPlainTextEdit;
class QPushButton;

namespace vexlator::desktop {

class Conversation;
class ProgressPanel;

/// The window of one conversion that a command asked for: how far it is, what it says, a button to cancel it.
class CommandWindow : public QDialog {
public:
    /// `conversation` outlives the window.
    CommandWindow(const QString& command, Conversation& conversation);
    void Report(const QString& line);

protected:
    /// Closing asks, then cancels; the window goes when the conversion has ended.
    void reject() override;

private:
    Conversation& conversation_;
    ProgressPanel* progress_;
    QPlainTextEdit* lines_;
    QPushButton* cancel_;
};

/// Asks whether a conversion that runs is to be cancelled.
bool AsksToCancel(QWidget* parent);

}  // namespace vexlator::desktop
