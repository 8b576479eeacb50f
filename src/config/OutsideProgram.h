// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "config/Run.h"
#include "platform/Task.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::config {

/// The path of a program of the suite, as in "PDF\MakeWorldFile.exe" below the program folder; a name without
/// ".exe" where only that exists; then one of that name beside the running program. "" when there is none.
std::string FindSuiteProgram(const Run& run, std::string_view pathBelowProgramFolder);

/// A program that works for a conversion, and gives a sign when it has done so. Its output goes to no
/// terminal. It ends with the object: it is asked to, and killed when it does not.
class OutsideProgram {
public:
    /// @param program its path text
    /// @param arguments a text: blanks separate them, double quotes enclose one
    OutsideProgram(Run& run, std::string program, const std::string& arguments);
    /// The arguments as they stand; those that are paths are native.
    OutsideProgram(Run& run, std::string program, std::vector<std::string> arguments);
    ~OutsideProgram();
    OutsideProgram(const OutsideProgram&) = delete;
    OutsideProgram& operator=(const OutsideProgram&) = delete;

    /// Waits until `isDone()`, which is asked ten times a second, or until the program has ended.
    /// `whileWaiting` is where a cancel arrives: what it throws ends program and wait.
    /// @returns true when it is done; else the program has ended, by itself or because the time was over, and
    /// Problem() says so
    bool WaitFor(const std::function<bool()>& isDone, const std::function<void()>& whileWaiting,
                 std::optional<double> seconds = {});
    /// Waits until the program has ended. Exit status 0 is its sign; with `isDone`, that counts instead.
    bool WaitForEnd(const std::function<void()>& whileWaiting, const std::function<bool()>& isDone = {});
    /// In a plain line; with the last line that the program printed.
    const std::string& Problem() const { return problem_; }
    /// What it has printed so far. The middle of a very long output is left out.
    const std::string& Output() const { return task_ ? task_->Output() : output_; }

private:
    void Start(const std::vector<std::string>& command);
    void End();
    std::string EndText() const;
    bool Fail(const std::string& reason);

    Run& run_;
    std::string program_;
    std::optional<platform::Task> task_;
    std::string problem_;
    std::string output_;  ///< of a program that has ended
};

/// How long a program may take until it gives its sign, by the settings.
double UsualWait(const Run& run);
config::KeyList OutsideProgramKeys();

}  // namespace vexlator::config
