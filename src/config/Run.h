// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/LoggedInterface.h"
#include "config/SharedSettings.h"
#include "platform/Clock.h"
#include "ui/UserInterface.h"

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace vexlator::config {

/// Counts what an output could not hold, so that no loss is silent.
class LossReport {
public:
    enum class Kind {
        LeftOut,   ///< entities of a kind that the format cannot hold; the field names the kind
        Cut,       ///< values that are longer than their column
        NoColumn,  ///< values for which there is no column
        Broken,    ///< values that hold what separates fields or rows
        Replaced   ///< characters that the encoding lacks
    };
    void Count(Kind kind, std::string_view layer, std::string_view field, std::uint64_t values = 1);
    bool Empty() const { return counts_.empty(); }
    /// One line, as in "values cut: FENCE.NOTES 3, WALL.NAME 1; characters replaced: WALL.NAME 2"; "" when
    /// nothing was lost. Of each kind it names the first few, long names cut, and counts the others.
    std::string Line() const;

private:
    std::map<std::pair<Kind, std::string>, std::uint64_t> counts_;
};

/// What a run shares. Made once by Main (or a test), passed by reference; nothing else is global.
class Run {
public:
    explicit Run(ui::UserInterface& userInterface, platform::Clock clock = platform::LocalTime);
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    SharedSettings& Settings() { return settings_; }
    const SharedSettings& Settings() const { return settings_; }
    /// Whatever it shows goes to the run log too.
    ui::UserInterface& Ui() { return ui_; }
    platform::DateTime Now() const { return clock_(); }
    LossReport& Losses() { return losses_; }

    /// The value of a key, "" when it is missing. An empty file means gv.ini. Never cached: a value written
    /// earlier in the run is seen.
    std::string ReadIni(std::string_view section, std::string_view key, std::string_view file = "") const;
    /// On only when the value is exactly "1".
    bool ReadIniFlag(std::string_view section, std::string_view key, std::string_view file = "") const;
    /// A file that cannot be written does not stop a conversion; one line tells it, once.
    void WriteIni(std::string_view section, std::string_view key, std::string_view value,
                  std::string_view file = "");

    /// Adds one dated line to the run log, when there is one. A log that cannot be written is told once.
    void Log(std::string_view text);
    /// A message that only debug mode shows.
    void DebugMessage(std::string_view text);

private:
    LoggedInterface ui_;
    platform::Clock clock_;
    SharedSettings settings_;
    LossReport losses_;
    std::set<std::string, std::less<>> notWritable_;  ///< files of which the person knows that
};

}  // namespace vexlator::config
