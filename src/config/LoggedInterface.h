// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/UserInterface.h"

#include <functional>
#include <memory>
#include <string_view>

namespace vexlator::config {

/// Hands everything over to another user interface, and writes every text that the user sees to the run log
/// too. So the log shows in the morning what happened in a night without anybody watching.
class LoggedInterface : public ui::UserInterface {
public:
    LoggedInterface(ui::UserInterface& shown, std::function<void(std::string_view)> log);

    void ShowMessage(std::string_view text) override;
    bool AskYesNo(std::string_view text) override;
    void Report(std::string_view line) override;
    std::unique_ptr<ui::FormView> ShowForm(std::string_view name) override;
    void Settle(double seconds) override;
    void Beep() override;
    ui::UserInterface& Shown() { return shown_; }

private:
    ui::UserInterface& shown_;
    std::function<void(std::string_view)> log_;
};

}  // namespace vexlator::config
