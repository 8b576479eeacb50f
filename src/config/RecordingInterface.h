// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/ConversionReport.h"
#include "ui/UserInterface.h"

namespace vexlator::config {

/// Keeps what the program that started this one will show. A question is answered with No.
class RecordingInterface : public ui::UserInterface {
public:
    explicit RecordingInterface(ConversionReport& report) : report_(report) {}

    void ShowMessage(std::string_view text) override { report_.lines.push_back({true, std::string(text)}); }
    bool AskYesNo(std::string_view) override { return false; }
    void Report(std::string_view line) override { report_.lines.push_back({false, std::string(line)}); }
    std::unique_ptr<ui::FormView> ShowForm(std::string_view) override;
    void Settle(double) override {}
    void Beep() override {}

private:
    ConversionReport& report_;
};

}  // namespace vexlator::config
