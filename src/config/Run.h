// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Installation.h"
#include "config/LoggedInterface.h"
#include "config/LossReport.h"
#include "config/Outcome.h"
#include "ui/UserInterface.h"

#include <functional>
#include <set>
#include <string>
#include <string_view>

namespace vexlator::config {

/// The part of the world that an import is limited to, in drawing units. All 0: no limit.
struct ImportExtentBox {
    double minX = 0, minY = 0, maxX = 0, maxY = 0;

    bool IsSet() const { return minX != 0 || minY != 0 || maxX != 0 || maxY != 0; }
};

/// What the command of a run asks for beside its conversion.
struct RunOptions {
    bool quiet = false;  ///< asks nothing that would hold up a run without anybody watching
    bool minimised = false;
    ImportExtentBox extent;
    std::string folder;  ///< path text; results go here instead of beside what they are made of; "": there
};

/// The device job that a drawing came from. Path texts; empty when it came from none.
struct JobPath {
    std::string full;
    std::string
        relative;  ///< below WorkFlowDirectory, its folders separated by "\"; "" when it lies elsewhere
};

/// One conversion: whom it talks to, what was asked of it, what comes of it. Several can follow each other,
/// or go on side by side, in one installation.
class Run {
public:
    /// Both outlive the run.
    Run(config::Installation& installation, ui::UserInterface& userInterface, RunOptions options = {});
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    /// Whatever it shows goes to the run log too.
    ui::UserInterface& Ui() { return ui_; }
    RunOptions& Options() { return options_; }
    const RunOptions& Options() const { return options_; }
    LossReport& Losses() { return losses_; }

    // What an export finds out, for the steps that follow it.
    JobPath& Job() { return job_; }
    const JobPath& Job() const { return job_; }
    std::string& MissingPhotos() {
        return missingPhotos_;
    }                                                ///< a line for each photograph that was not found
    config::Outcome& Outcome() { return outcome_; }  ///< of the conversion, once it has ended

    // What the installation knows.
    const config::Installation& Installation() const { return installation_; }
    const SharedSettings& Settings() const { return installation_.Settings(); }
    platform::DateTime Now() const { return installation_.Now(); }
    std::string ReadIni(std::string_view section, std::string_view key, std::string_view file = "") const {
        return installation_.ReadIni(section, key, file);
    }
    bool ReadIniFlag(std::string_view section, std::string_view key, std::string_view file = "") const {
        return installation_.ReadIniFlag(section, key, file);
    }
    /// A file that cannot be written does not stop a conversion; one line tells it, once.
    void WriteIni(std::string_view section, std::string_view key, std::string_view value,
                  std::string_view file = "");

    /// Adds one dated line to the run log, when there is one. A log that cannot be written is told once.
    void Log(std::string_view text);
    /// A message that only debug mode shows.
    void DebugMessage(std::string_view text);

private:
    void TellOnce(const std::string& file, const std::function<void()>& write, const char* consequence);

    config::Installation& installation_;
    LoggedInterface ui_;
    RunOptions options_;
    LossReport losses_;
    JobPath job_;
    std::string missingPhotos_;
    config::Outcome outcome_;
    std::set<std::string> notWritable_;  ///< files of which the person knows that
};

}  // namespace vexlator::config
