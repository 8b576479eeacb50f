// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Ini.h"
#include "config/SharedSettings.h"
#include "platform/Clock.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::config {

/// A value that replaces the one in gv.ini. It is never written to the file.
struct IniOverride {
    std::string section, key, value;
};

/// What stays the same for the life of a program: gv.ini, the folders, the clock, the run log. Made once by
/// Main (or a window, or a test), passed by reference; nothing else is global.
class Installation {
public:
    explicit Installation(platform::Clock clock = platform::LocalTime) : clock_(std::move(clock)) {}
    /// For work that goes on beside this one.
    explicit Installation(const Installation&) = default;
    Installation& operator=(const Installation&) = delete;

    SharedSettings& Settings() { return settings_; }
    const SharedSettings& Settings() const { return settings_; }
    platform::DateTime Now() const { return clock_(); }

    /// The value of a key, "" when it is missing. An empty file means gv.ini. Never cached: a value written
    /// earlier is seen.
    std::string ReadIni(std::string_view section, std::string_view key, std::string_view file = "") const;
    /// The whole gv.ini, read once for all of its values. A missing file has no values.
    IniText Ini() const;
    /// True only if the value is exactly "1".
    bool ReadIniFlag(std::string_view section, std::string_view key, std::string_view file = "") const;
    /// From now on a key of gv.ini has this value, whatever the file holds.
    void Override(IniOverride value) { overrides_.push_back(std::move(value)); }
    /// The path text of the file that an empty file name means.
    std::string IniFile(std::string_view file) const;
    /// @throws platform::WriteError
    void WriteIni(std::string_view section, std::string_view key, std::string_view value,
                  std::string_view file = "");
    /// Adds one dated line to the run log, when there is one. @throws platform::WriteError
    void Log(std::string_view text);

private:
    platform::Clock clock_;
    SharedSettings settings_;
    std::vector<IniOverride> overrides_;  ///< the last one for a key counts
};

}  // namespace vexlator::config
