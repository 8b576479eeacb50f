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

/// A value that counts instead of that in gv.ini, and is never written there.
struct IniOverride {
    std::string section, key, value;
};

/// What stays the same for the life of a program: gv.ini, the folders, the clock, the run log. Made once by
/// Main (or a window, or a test), passed by reference; nothing else is global.
class Installation {
public:
    explicit Installation(platform::Clock clock = platform::LocalTime) : clock_(std::move(clock)) {}
    Installation(const Installation&) = delete;
    Installation& operator=(const Installation&) = delete;

    SharedSettings& Settings() { return settings_; }
    const SharedSettings& Settings() const { return settings_; }
    platform::DateTime Now() const { return clock_(); }

    /// The value of a key, "" when it is missing. An empty file means gv.ini. Never cached: a value written
    /// earlier is seen.
    std::string ReadIni(std::string_view section, std::string_view key, std::string_view file = "") const;
    /// gv.ini as a whole, read once for all of its values; one that is missing has none.
    IniText Ini() const;
    /// On only when the value is exactly "1".
    bool ReadIniFlag(std::string_view section, std::string_view key, std::string_view file = "") const;
    /// From now on a key of gv.ini has this value, whatever the file says.
    void Override(IniOverride value) { overrides_.push_back(std::move(value)); }
    /// The path text of the file that an empty one means.
    std::string IniFile(std::string_view file) const;
    /// @throws platform::WriteError
    void WriteIni(std::string_view section, std::string_view key, std::string_view value,
                  std::string_view file = "");
    /// Adds one dated line to the run log, when there is one. @throws platform::WriteError
    void Log(std::string_view text);

private:
    platform::Clock clock_;
    SharedSettings settings_;
    std::vector<IniOverride> overrides_;  ///< of those of one key the last counts
};

}  // namespace vexlator::config
