// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace vexlator::platform {

/// A process of its own that does one piece of work after the other, for this one. It begins as a copy of
/// this process: nothing is loaded again. A crash costs the piece that it is at. It reads nothing, what it
/// prints is kept, and it dies with this process. Files that are open here, and the locks on them, it has
/// too.
class Task {
public:
    /// What a piece of work returns to this process: an exit status, and a text.
    struct Result {
        int status = 0;
        std::string report;
    };
    using Work = std::function<Result(const std::string& order)>;

    /// Only where this process has no further threads. The work outlives the object.
    /// @throws std::system_error when the system gives no process
    explicit Task(const Work& work);
    /// A program (native path and arguments), which is at its only piece of work.
    explicit Task(const std::vector<std::string>& program);
    /// Kills what still runs.
    ~Task();
    Task(Task&& other) noexcept;
    Task& operator=(Task&& other) noexcept;
    Task(const Task&) = delete;
    Task& operator=(const Task&) = delete;

    /// Gives it a piece of work. False when the process is no more.
    bool Give(const std::string& order);
    /// Takes what has been printed since the last look. True when the piece of work has ended, and be it by
    /// the end of the process.
    bool Look();
    /// Whether it can be given another piece of work. After some it cannot: what one process has used up
    /// stays bounded.
    bool CanGoOn() const { return process_ > 0 && !isStopped_ && pieces_ < mostPieces; }
    /// Asks the process, and those that it started, to stop.
    void Stop();
    /// Ends them at once.
    void Kill() const;

    /// @name Of the piece of work that has ended
    /// @{
    int Status() const { return result_.status; }
    int Signal() const { return signal_; }  ///< that ended the process; 0: none did
    const std::string& Report() const { return result_.report; }
    /// What it printed, to standard output and standard error; of very much the middle is left out.
    const std::string& Output() const { return output_; }
    /// @}

private:
    friend void WaitForTasks(std::span<const Task* const> tasks, double seconds);
    static constexpr int mostPieces = 100;
    void Start(const std::function<void(int orderPipe, int reportPipe)>& child);
    bool TakeResult();

    int process_ = -1;       ///< -1: has ended
    int processEvent_ = -1;  ///< a descriptor that can be read once the process has ended
    int orderPipe_ = -1, outputPipe_ = -1, reportPipe_ = -1;
    int pieces_ = 0;
    bool isStopped_ = false;
    int signal_ = 0;
    std::string output_, received_;
    Result result_;
};

/// Waits until one of the tasks has printed something or ended, a signal came, or the time has passed.
void WaitForTasks(std::span<const Task* const> tasks, double seconds);

/// Processors that this process may use; at least 1.
unsigned CountProcessors();

}  // namespace vexlator::platform
