// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/application/Conversation.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

class QLabel;
class QProgressBar;

namespace vexlator::desktop {

/// How far a conversion is: a bar, what is being worked on, how long it has taken.
class ProgressPanel : public QWidget {
public:
    explicit ProgressPanel(QWidget* parent = nullptr);

    /// Follows a conversation until Stop(). It outlives the panel, or the following.
    void Follow(const Conversation& conversation);
    /// Shows a last line.
    void Stop(const QString& line);
    /// Of a list of files: the bar then counts files.
    void SetFiles(int done, int total);

private:
    void Look();

    const Conversation* conversation_ = nullptr;
    int files_ = 0, filesDone_ = 0;
    QElapsedTimer elapsed_;
    QTimer timer_;
    QLabel* text_;
    QLabel* time_;
    QProgressBar* bar_;
};

}  // namespace vexlator::desktop
