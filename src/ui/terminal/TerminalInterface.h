// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/UserInterface.h"
#include "ui/terminal/ProgressLine.h"

#include <cstdio>

namespace vexlator::ui {

/// The user at a terminal, or a script or scheduler.
///
/// Each message is a line "message: TEXT", each question a line "question: TEXT [y/N]". Further lines of a
/// text are indented. Answers are lines of the input: y or yes, in any letter case, is Yes. Any other line
/// and the end of the input is No. Progress is one rewritten line, only on a terminal. There are no colours.
/// Nothing fails if nobody reads the output.
class TerminalInterface : public UserInterface {
public:
    struct Options {
        bool yesToAll = false;    ///< every answer is Yes, and the input is not read
        bool isTerminal = false;  ///< the output is a terminal
    };

    /// The caller owns the streams.
    TerminalInterface(std::FILE* input, std::FILE* output, Options options)
        : input_(input), output_(output), options_(options), progress_(output) {}

    void ShowMessage(std::string_view text) override;
    bool AskYesNo(std::string_view text) override;
    void Report(std::string_view line) override;
    std::unique_ptr<FormView> ShowForm(std::string_view name) override;
    /// Does not wait, because there is no window to repaint.
    void Settle(double) override {}
    void Beep() override;

private:
    void WriteLine(std::string_view line);

    std::FILE* input_;
    std::FILE* output_;
    Options options_;
    ProgressLine progress_;
};

}  // namespace vexlator::ui
