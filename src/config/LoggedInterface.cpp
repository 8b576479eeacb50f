// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/LoggedInterface.h"

#include <string>
#include <utility>

namespace vexlator::config {

LoggedInterface::LoggedInterface(ui::UserInterface& shown, std::function<void(std::string_view)> log)
    : shown_(shown), log_(std::move(log)) {}

void LoggedInterface::ShowMessage(std::string_view text) {
    log_(text);
    shown_.ShowMessage(text);
}

bool LoggedInterface::AskYesNo(std::string_view text) {
    bool answer = shown_.AskYesNo(text);
    log_(std::string(text) + (answer ? " [Yes]" : " [No]"));
    return answer;
}

void LoggedInterface::Report(std::string_view line) {
    log_(line);
    shown_.Report(line);
}

std::unique_ptr<ui::FormView> LoggedInterface::ShowForm(std::string_view name) {
    return shown_.ShowForm(name);
}

void LoggedInterface::Settle(double seconds) {
    shown_.Settle(seconds);
}

void LoggedInterface::Beep() {
    shown_.Beep();
}

}  // namespace vexlator::config
