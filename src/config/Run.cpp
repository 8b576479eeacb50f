// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Run.h"

#include "config/Ini.h"
#include "platform/Errors.h"
#include "util/Log.h"
#include "util/ShortList.h"

#include <array>
#include <stdexcept>

namespace vexlator::config {

namespace {

constexpr std::array<std::pair<LossReport::Kind, std::string_view>, 5> titles = {{
    {LossReport::Kind::LeftOut, "entities left out: "},
    {LossReport::Kind::Cut, "values cut: "},
    {LossReport::Kind::NoColumn, "values without a column: "},
    {LossReport::Kind::Broken, "values that break their row: "},
    {LossReport::Kind::Replaced, "characters replaced: "},
}};

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
    for (const auto& [kind, title] : titles) {
        util::ShortList fields(mostFields);
        for (const auto& [key, count] : counts_)
            if (key.first == kind)
                fields.Add(util::ShortList::Shortened(key.second) + " " + std::to_string(count));
        if (!fields.Empty()) line.append(line.empty() ? "" : "; ").append(title).append(fields.Text());
    }
    return line;
}

Run::Run(ui::UserInterface& userInterface, platform::Clock clock)
    : ui_(userInterface, [this](std::string_view text) { Log(text); }), clock_(std::move(clock)) {}

std::string Run::ReadIni(std::string_view section, std::string_view key, std::string_view file) const {
    return ReadIniFile(file.empty() ? settings_.IniFilePath : file, section, key);
}

bool Run::ReadIniFlag(std::string_view section, std::string_view key, std::string_view file) const {
    return ReadIni(section, key, file) == "1";
}

void Run::WriteIni(std::string_view section, std::string_view key, std::string_view value,
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

void Run::Log(std::string_view text) {
    if (notWritable_.contains(settings_.InOutLog)) return;
    try {
        util::WriteRunLog(settings_.InOutLog, text, Now());
    } catch (const platform::WriteError& error) {
        notWritable_.insert(settings_.InOutLog);
        ui_.Report("no run log is written: " + std::string(error.what()));
    }
}

void Run::DebugMessage(std::string_view text) {
    if (settings_.DebugMode) ui_.ShowMessage(text);
}

}  // namespace vexlator::config
