// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace vexlator::platform {

/// A child process that does one piece of work after the other for this process. It begins as a copy of this
/// process, so nothing is loaded again. A crash loses only the current piece. It has no input, its output is
/// captured, and it dies with this process. It inherits the open files and their locks.
class Task {
public:
    /// The result that a piece of work returns to this process: an exit status and a text.
    struct Result {
        int status = 0;
        std::string report;
    };
    using Work = std::function<Result(const std::string& order)>;

    /// Call only while this process has no further threads. The work must outlive the object.
    /// @throws std::system_error if the system gives no process
    explicit Task(const Work& work);
    /// A program (native path and arguments), with one piece of work only.
    explicit Task(const std::vector<std::string>& program);
    /// Kills the process if it is running.
    ~Task();
    Task(Task&& other) noexcept;
    Task& operator=(Task&& other) noexcept;
    Task(const Task&) = delete;
    Task& operator=(const Task&) = delete;

    /// Gives it a piece of work. False if the process has ended.
    bool Give(const std::string& order);
    /// Reads new output. True if the piece of work has ended, also if the process has ended.
    bool Look();
    /// Whether it can take another piece of work. After a number of pieces it cannot, which limits the
    /// resources of one process.
    bool CanGoOn() const { return process_ > 0 && !isStopped_ && pieces_ < mostPieces; }
    /// Asks the process and its children to stop.
    void Stop();
    /// Ends them at once.
    void Kill() const;

    /// @name About the finished piece of work
    /// @{
    int Status() const { return result_.status; }
    int Signal() const { return signal_; }  ///< signal that ended the process; 0: none
    const std::string& Report() const { return result_.report; }
    /// Its standard output and standard error. The middle of a very long output is left out.
    const std::string& Output() const { return output_; }
    /// @}

private:
    friend void WaitForTasks(std::span<const Task* const> tasks, double seconds);
    static constexpr int mostPieces = 100;
    void Start(const std::function<void(int orderPipe, int reportPipe)>& child);
    bool TakeResult();

    int process_ = -1;       ///< -1: has ended
    int processEvent_ = -1;  ///< a descriptor that becomes readable when the process has ended
    int orderPipe_ = -1, outputPipe_ = -1, reportPipe_ = -1;
    int pieces_ = 0;
    bool isStopped_ = false;
    int signal_ = 0;
    std::string output_, received_;
    Result result_;
};

/// Waits until one of the tasks has printed something or ended, a signal has arrived, or the time has passed.
void WaitForTasks(std::span<const Task* const> tasks, double seconds);

/// Processors that this process may use; at least 1.
unsigned CountProcessors();

}  // namespace vexlator::platform
