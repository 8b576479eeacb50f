// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Session.h"

#include "config/Ini.h"
#include "platform/Errors.h"
#include "util/Log.h"

#include <stdexcept>

namespace vexlator::config {

namespace {

std::string Title(LossReport::Kind kind) {
    return kind == LossReport::Kind::Cut ? "values cut: " : "characters replaced: ";
}

}  // namespace

void LossReport::Count(Kind kind, std::string_view layer, std::string_view field, std::uint64_t values) {
    if (values == 0) return;
    std::string name(layer);
    if (!field.empty()) name.append(".").append(field);
    counts_[{kind, std::move(name)}] += values;
}

std::string LossReport::Line() const {
    constexpr std::size_t mostFields = 20;  // of each kind; a line is for people
    std::string line;
    for (Kind kind : {Kind::Cut, Kind::Replaced}) {
        std::size_t fields = 0;
        for (const auto& [key, count] : counts_) {
            if (key.first != kind || ++fields > mostFields) continue;
            if (fields > 1) line += ", ";
            if (fields == 1) line += (line.empty() ? "" : "; ") + Title(kind);
            line += key.second + " " + std::to_string(count);
        }
        if (fields > mostFields) line += " and " + std::to_string(fields - mostFields) + " more fields";
    }
    return line;
}

Session::Session(ui::UserInterface& userInterface, platform::Clock clock)
    : ui_(userInterface, [this](std::string_view text) { Log(text); }), clock_(std::move(clock)) {}

std::string Session::ReadIni(std::string_view section, std::string_view key, std::string_view file) const {
    return ReadIniFile(file.empty() ? settings_.IniFilePath : file, section, key);
}

bool Session::ReadIniFlag(std::string_view section, std::string_view key, std::string_view file) const {
    return ReadIni(section, key, file) == "1";
}

void Session::WriteIni(std::string_view section, std::string_view key, std::string_view value,
                       std::string_view file) {
    std::string path(file.empty() ? settings_.IniFilePath : file);
    if (notWritable_.contains(path)) return;
    try {
        WriteIniFile(path, section, key, value);
    } catch (const std::runtime_error& error) {
        notWritable_.insert(path);
        ui_.Report("settings are not kept: " + std::string(error.what()));
    }
}

void Session::Log(std::string_view text) {
    if (notWritable_.contains(settings_.InOutLog)) return;
    try {
        util::WriteRunLog(settings_.InOutLog, text, Now());
    } catch (const platform::WriteError& error) {
        notWritable_.insert(settings_.InOutLog);
        ui_.Report("no run log is written: " + std::string(error.what()));
    }
}

void Session::DebugMessage(std::string_view text) {
    if (settings_.DebugMode) ui_.ShowMessage(text);
}

}  // namespace vexlator::config
