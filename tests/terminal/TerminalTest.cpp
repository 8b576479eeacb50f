// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Process.h"
#include "ui/terminal/PlainText.h"
#include "ui/terminal/TerminalInterface.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vexlator::ui {
namespace {

/// A terminal with files at both ends.
class Terminal {
public:
    explicit Terminal(TerminalInterface::Options options, std::string_view typed = "") {
        std::fwrite(typed.data(), 1, typed.size(), input_);
        std::rewind(input_);
        ui = std::make_unique<TerminalInterface>(input_, output_, options);
    }
    ~Terminal() {
        std::fclose(input_);
        std::fclose(output_);
    }
    /// The output since the last call.
    std::string Shown() {
        std::string text;
        std::fseek(output_, seen_, SEEK_SET);
        for (int c = std::getc(output_); c != EOF; c = std::getc(output_)) text += static_cast<char>(c);
        seen_ = std::ftell(output_);
        return text;
    }
    std::unique_ptr<TerminalInterface> ui;

private:
    std::FILE* input_ = std::tmpfile();
    std::FILE* output_ = std::tmpfile();
    long seen_ = 0;
};

TEST(Terminal, AnswersAreLinesOfTheInput) {
    std::string typed = "y\nYES\n yes \r\nn\n\nyesterday\n" + std::string(100, ' ') + "y\nY";
    Terminal terminal({}, typed);
    for (bool yes : {true, true, true, false, false, false, false, true, false, false})
        EXPECT_EQ(terminal.ui->AskYesNo("?"), yes);
}

TEST(Terminal, TextsCannotForgeLinesOrCommandTheTerminal) {
    struct Case {
        std::string_view text, shown;
    };
    for (const Case& c : std::vector<Case>{
             {"a\nmessage: b", "a\n  message: b"},
             {"a\r\nb\rc\n\r\n", "a\n  b\n  c"},
             {"\x1B[2J\a\x7F\tx", "?[2J?? x"},
             {"caf\xC3\xA9 \xC2\x9B"
              "1m",
              "caf\xC3\xA9 ?1m"},
             {"caf\xE9 \x9B", "caf? ?"},
             {std::string_view("a\0b", 3), "a?b"},
         })
        EXPECT_EQ(IndentedLines(c.text), c.shown);
    EXPECT_EQ(OneLine("WALL\r\nFENCE"), "WALL FENCE");
}

TEST(Terminal, ProgressIsOneLineThatOtherLinesReplace) {
    Terminal terminal({.isTerminal = true});
    {
        auto view = terminal.ui->ShowForm("frmSHP");
        view->SetLabel(
            "FEN\x1B"
            "CE");
        view->Progress(12345, 20000);
        EXPECT_EQ(terminal.Shown(), "\r\x1B[KFEN?CE  12,345 of 20,000");
        terminal.ui->ShowMessage("No Default Sym");
        EXPECT_EQ(terminal.Shown(), "\r\x1B[Kmessage: No Default Sym\n");
        platform::Sleep(0.11);
        view->Progress(12445, 0);
        std::string line = terminal.Shown();
        EXPECT_TRUE(line.starts_with("\r\x1B[KFEN?CE  12,445  ")) << line;
        EXPECT_TRUE(line.ends_with("/s")) << line;
        EXPECT_EQ(line.find(',', line.find("12,445") + 3), std::string::npos) << "below 1,000 a second";
    }
    EXPECT_EQ(terminal.Shown(), "\r\x1B[K");
}

TEST(Terminal, ProgressIsShownSeldomAndNeverWraps) {
    Terminal terminal({.isTerminal = true});
    auto view = terminal.ui->ShowForm("frmSHP");
    view->SetLabel(std::string(500, 'x'));
    for (std::uint64_t i = 0; i < 10000; ++i) view->Progress(i, 0);
    constexpr std::size_t longestLine = 79 + 4;
    EXPECT_LT(terminal.Shown().size(), 20 * longestLine);
}

}  // namespace
}  // namespace vexlator::ui
