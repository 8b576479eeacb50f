// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "ui/terminal/TerminalInterface.h"

#include "platform/AsciiCase.h"
#include "platform/Signals.h"
#include "ui/terminal/PlainText.h"
#include "util/Text.h"

#include <string>

namespace vexlator::ui {

namespace {

/// The start of the next line, long enough for an answer.
std::string ReadAnswer(std::FILE* input) {
    constexpr std::size_t longestAnswer = 80;
    std::string line;
    for (int c = std::getc(input); c != EOF && c != '\n'; c = std::getc(input))
        if (c != '\r' && line.size() < longestAnswer) line += static_cast<char>(c);
    return line;
}

bool IsYes(std::string_view answer) {
    std::string_view word = util::Trim(answer);
    return platform::SameNoCase(word, "y") || platform::SameNoCase(word, "yes");
}

/// For runs without progress.
class SilentView : public FormView {
    void SetCaption(std::string_view) override {}
    void SetLabel(std::string_view) override {}
    void Progress(std::uint64_t, std::uint64_t) override { platform::ThrowIfStopped(); }
};

}  // namespace

void TerminalInterface::WriteLine(std::string_view line) {
    progress_.Erase();
    std::string text = std::string(line) + "\n";
    std::fwrite(text.data(), 1, text.size(), output_);
    std::fflush(output_);
}

void TerminalInterface::ShowMessage(std::string_view text) {
    WriteLine("message: " + IndentedLines(text));
}

bool TerminalInterface::AskYesNo(std::string_view text) {
    WriteLine("question: " + IndentedLines(text) + " [y/N]");
    bool isYes = options_.yesToAll || IsYes(ReadAnswer(input_));
    platform::ThrowIfStopped();  // a signal ends the wait too
    return isYes;
}

void TerminalInterface::Report(std::string_view line) {
    WriteLine(IndentedLines(line));
}

std::unique_ptr<FormView> TerminalInterface::ShowForm(std::string_view) {
    if (options_.isTerminal) return std::make_unique<ProgressView>(progress_);
    return std::make_unique<SilentView>();
}

void TerminalInterface::Beep() {
    if (!options_.isTerminal) return;
    std::fputc('\a', output_);
    std::fflush(output_);
}

}  // namespace vexlator::ui
