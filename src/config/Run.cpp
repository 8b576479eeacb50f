// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Run.h"

#include <stdexcept>
#include <utility>

namespace vexlator::config {

Run::Run(config::Installation& installation, ui::UserInterface& userInterface, RunOptions options)
    : installation_(installation),
      ui_(userInterface, [this](std::string_view text) { Log(text); }),
      options_(std::move(options)) {}

void Run::WriteIni(std::string_view section, std::string_view key, std::string_view value,
                   std::string_view file) {
    TellOnce(
        installation_.IniFile(file), [&] { installation_.WriteIni(section, key, value, file); },
        "settings are not saved: ");
}

void Run::Log(std::string_view text) {
    TellOnce(
        Settings().InOutLog, [&] { installation_.Log(text); }, "no run log is written: ");
}

void Run::DebugMessage(std::string_view text) {
    if (Settings().DebugMode) ui_.ShowMessage(text);
}

/// Writes to a file, unless an earlier write failed.
void Run::TellOnce(const std::string& file, const std::function<void()>& write, const char* consequence) {
    if (notWritable_.contains(file)) return;
    try {
        write();
    } catch (const std::runtime_error& error) {
        notWritable_.insert(file);
        ui_.Report(consequence + std::string(error.what()));
    }
}

}  // namespace vexlator::config
