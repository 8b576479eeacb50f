// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/UserInterface.h"

#include <deque>
#include <string>
#include <vector>

namespace vexlator::test {

/// Records the messages to the user, and answers from a list (No if it is empty).
class TestUi : public ui::UserInterface {
public:
    std::vector<std::string> messages, questions, reports, labels;
    std::deque<bool> answers;

    void ShowMessage(std::string_view text) override { messages.emplace_back(text); }
    bool AskYesNo(std::string_view text) override {
        questions.emplace_back(text);
        if (answers.empty()) return false;
        bool answer = answers.front();
        answers.pop_front();
        return answer;
    }
    void Report(std::string_view line) override { reports.emplace_back(line); }
    std::unique_ptr<ui::FormView> ShowForm(std::string_view) override {
        return std::make_unique<View>(*this);
    }
    void Settle(double) override {}
    void Beep() override {}

private:
    struct View : ui::FormView {
        explicit View(TestUi& owner) : ui(owner) {}
        void SetCaption(std::string_view) override {}
        void SetLabel(std::string_view text) override { ui.labels.emplace_back(text); }
        void Progress(std::uint64_t, std::uint64_t) override {}
        TestUi& ui;
    };
};

}  // namespace vexlator::test
