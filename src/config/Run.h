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

/// The area that limits an import, in drawing units. All 0: no limit.
struct ImportExtentBox {
    double minX = 0, minY = 0, maxX = 0, maxY = 0;

    bool IsSet() const { return minX != 0 || minY != 0 || maxX != 0 || maxY != 0; }
};

/// Options of a run beside its conversion.
struct RunOptions {
    bool quiet = false;  ///< asks no questions that would hold up a run without a user
    bool minimised = false;
    ImportExtentBox extent;
    std::string folder;  ///< path text of the folder for results; "": results go beside their sources
};

/// The device job of a drawing. Path texts; empty if the drawing has no job.
struct JobPath {
    std::string full;
    std::string relative;  ///< relative to WorkFlowDirectory, with "\" between folders; "" if it is elsewhere
};

/// One conversion: its user, its options, its outcome. One installation can have several runs, one after the
/// other or side by side.
class Run {
public:
    /// Both must outlive the run.
    Run(config::Installation& installation, ui::UserInterface& userInterface, RunOptions options = {});
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    /// Everything that it shows goes to the run log too.
    ui::UserInterface& Ui() { return ui_; }
    /// For runs of their own inside this one, which log for themselves.
    ui::UserInterface& UnloggedUi() { return ui_.Shown(); }
    RunOptions& Options() { return options_; }
    const RunOptions& Options() const { return options_; }
    LossReport& Losses() { return losses_; }

    // The results of an export, for the steps that follow it.
    JobPath& Job() { return job_; }
    const JobPath& Job() const { return job_; }
    std::string& MissingPhotos() { return missingPhotos_; }  ///< one line for each missing photograph
    config::Outcome& Outcome() { return outcome_; }          ///< of the conversion; set when it has ended

    // The values of the installation.
    const config::Installation& Installation() const { return installation_; }
    const SharedSettings& Settings() const { return installation_.Settings(); }
    platform::DateTime Now() const { return installation_.Now(); }
    std::string ReadIni(std::string_view section, std::string_view key, std::string_view file = "") const {
        return installation_.ReadIni(section, key, file);
    }
    bool ReadIniFlag(std::string_view section, std::string_view key, std::string_view file = "") const {
        return installation_.ReadIniFlag(section, key, file);
    }
    /// Writes a value. A file that cannot be written does not stop a conversion; one message reports it.
    void WriteIni(std::string_view section, std::string_view key, std::string_view value,
                  std::string_view file = "");

    /// Adds one dated line to the run log, if there is one. A log that cannot be written is reported once.
    void Log(std::string_view text);
    /// A message that appears only in debug mode.
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
    std::set<std::string> notWritable_;  ///< files with faults that the user has already seen
};

}  // namespace vexlator::config
