// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Installation.h"

#include "platform/Files.h"
#include "util/Log.h"

namespace vexlator::config {

std::string Installation::IniFile(std::string_view file) const {
    return file.empty() ? settings_.IniFilePath : std::string(file);
}

std::string Installation::ReadIni(std::string_view section, std::string_view key,
                                  std::string_view file) const {
    if (file.empty() && !overrides_.empty()) return std::string(Ini().Value(section, key));
    return ReadIniFile(IniFile(file), section, key);
}

IniText Installation::Ini() const {
    std::string text;
    try {
        text = platform::ReadWholeFile(settings_.IniFilePath);
    } catch (const platform::ReadError&) {
    }
    for (const auto& [section, key, value] : overrides_) text = WithIniValue(text, section, key, value);
    return IniText(text);
}

bool Installation::ReadIniFlag(std::string_view section, std::string_view key, std::string_view file) const {
    return ReadIni(section, key, file) == "1";
}

void Installation::WriteIni(std::string_view section, std::string_view key, std::string_view value,
                            std::string_view file) {
    WriteIniFile(IniFile(file), section, key, value);
}

void Installation::Log(std::string_view text) {
    util::WriteRunLog(settings_.InOutLog, text, Now());
}

}  // namespace vexlator::config
