// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Task.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace vexlator::platform {

namespace {

constexpr std::size_t mostOutput = std::size_t{1} << 16;
constexpr int cannotRun = 127;  ///< exit status, as in shells

[[noreturn]] void ThrowError(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

void Close(int& descriptor) {
    if (descriptor >= 0) ::close(descriptor);
    descriptor = -1;
}

struct Pipe {
    Pipe() {
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) ThrowError("no pipe");
    }
    ~Pipe() {
        for (int& end : ends) Close(end);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    int Take(std::size_t end) { return std::exchange(ends[end], -1); }
    /// The read end, non-blocking.
    int TakeReadEnd() {
        ::fcntl(ends[0], F_SETFL, O_NONBLOCK);
        return Take(0);
    }

    std::array<int, 2> ends{-1, -1};
};

/// Appends the available output. Closes the pipe when it has no writer any more.
void ReadAvailable(int& descriptor, std::string& text, std::size_t most) {
    std::array<char, 8192> buffer;
    while (descriptor >= 0) {
        ssize_t size = ::read(descriptor, buffer.data(), buffer.size());
        if (size < 0 && errno == EINTR) continue;
        if (size < 0) return;
        if (size == 0) Close(descriptor);
        text.append(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
        if (text.size() > most) text.replace(most / 2, text.size() - most, "\n...\n");
    }
}

/// False if nobody reads.
bool WriteAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        ssize_t size = ::write(descriptor, text.data(), text.size());
        if (size < 0 && errno != EINTR) return false;
        text.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    }
    return true;
}

/// A message in the pipes: an exit status, or 0, and a text preceded by its length.
struct Header {
    std::int32_t status = 0;
    std::uint32_t size = 0;
};

bool WriteMessage(int descriptor, int status, std::string_view text) {
    Header header{status, static_cast<std::uint32_t>(text.size())};
    std::string message(sizeof header, '\0');
    std::memcpy(message.data(), &header, sizeof header);
    return WriteAll(descriptor, message.append(text));
}

bool ReadExactly(int descriptor, char* target, std::size_t size) {
    while (size > 0) {
        ssize_t got = ::read(descriptor, target, size);
        if (got == 0 || (got < 0 && errno != EINTR)) return false;
        target += std::max<ssize_t>(got, 0);
        size -= static_cast<std::size_t>(std::max<ssize_t>(got, 0));
    }
    return true;
}

/// Waits for the next order. False if no more will come.
bool ReadOrder(int descriptor, std::string& order) {
    Header header;
    if (!ReadExactly(descriptor, reinterpret_cast<char*>(&header), sizeof header)) return false;
    order.resize(header.size);
    return ReadExactly(descriptor, order.data(), order.size());
}

/// In the new process: a process group of its own, no input, and the pipe as output.
void BecomeTask(pid_t parent, int outputPipe) {
    ::setpgid(0, 0);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) ::_exit(cannotRun);  // the parent died before this was set
    int nothing = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    ::dup2(nothing, STDIN_FILENO);
    ::dup2(outputPipe, STDOUT_FILENO);
    ::dup2(outputPipe, STDERR_FILENO);
}

}  // namespace

Task::Task(const Work& work) {
    Start([&](int orderPipe, int reportPipe) {
        std::string order;
        while (ReadOrder(orderPipe, order)) {
            Result result = work(order);
            std::fflush(stdout);
            std::fflush(stderr);
            WriteMessage(reportPipe, result.status, result.report);
        }
        ::_exit(0);
    });
}

Task::Task(const std::vector<std::string>& program) {
    std::vector<char*> arguments;
    for (const std::string& argument : program) arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    Start([&](int, int) { ::execv(arguments[0], arguments.data()); });
}

void Task::Start(const std::function<void(int orderPipe, int reportPipe)>& child) {
    Pipe order, output, report;
    std::fflush(stdout);
    std::fflush(stderr);
    pid_t parent = ::getpid();
    process_ = ::fork();
    if (process_ < 0) ThrowError("no process can be started");
    if (process_ == 0) {
        BecomeTask(parent, output.ends[1]);
        ::close(order.Take(1));
        try {
            child(order.ends[0], report.ends[1]);
        } catch (...) {  // must not continue as a second parent
            ::abort();
        }
        ::_exit(cannotRun);
    }
    ::setpgid(process_, process_);  // whichever comes first
    // The system's library declares its function for C only.
    processEvent_ = static_cast<int>(::syscall(SYS_pidfd_open, process_, 0));
    orderPipe_ = order.Take(1);
    outputPipe_ = output.TakeReadEnd();
    reportPipe_ = report.TakeReadEnd();
    if (processEvent_ < 0) {
        Kill();
        ThrowError("a process cannot be watched");
    }
}

Task::~Task() {
    if (process_ > 0) {
        Kill();
        int status = 0;
        while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
        }
    }
    for (int* descriptor : {&processEvent_, &orderPipe_, &outputPipe_, &reportPipe_}) Close(*descriptor);
}

Task::Task(Task&& other) noexcept {
    *this = std::move(other);
}

Task& Task::operator=(Task&& other) noexcept {
    std::swap(process_, other.process_);
    std::swap(processEvent_, other.processEvent_);
    std::swap(orderPipe_, other.orderPipe_);
    std::swap(outputPipe_, other.outputPipe_);
    std::swap(reportPipe_, other.reportPipe_);
    std::swap(signal_, other.signal_);
    std::swap(pieces_, other.pieces_);
    std::swap(isStopped_, other.isStopped_);
    std::swap(output_, other.output_);
    std::swap(received_, other.received_);
    std::swap(result_, other.result_);
    return *this;
}

bool Task::Give(const std::string& order) {
    ++pieces_;
    output_.clear();
    received_.clear();
    result_ = {};
    return process_ > 0 && WriteMessage(orderPipe_, 0, order);
}

bool Task::Look() {
    constexpr std::size_t mostReport = std::size_t{1} << 24;
    if (process_ < 0) return true;
    // First asks whether the process has ended: all it wrote is then in the pipes. Reads its output after its
    // result, which it sends last.
    int status = 0;
    pid_t ended = ::waitpid(process_, &status, WNOHANG);
    ReadAvailable(reportPipe_, received_, mostReport);
    ReadAvailable(outputPipe_, output_, mostOutput);
    bool hasResult = TakeResult();
    if (ended != process_) return hasResult;
    process_ = -1;
    if (hasResult) return true;
    if (WIFSIGNALED(status)) signal_ = WTERMSIG(status);
    if (WIFEXITED(status)) result_.status = WEXITSTATUS(status);
    return true;
}

bool Task::TakeResult() {
    Header header;
    if (received_.size() < sizeof header) return false;
    std::memcpy(&header, received_.data(), sizeof header);
    if (received_.size() < sizeof header + header.size) return false;
    result_ = {header.status, received_.substr(sizeof header)};
    return true;
}

void Task::Stop() {
    isStopped_ = true;
    if (process_ > 0) ::kill(-process_, SIGTERM);
}

void Task::Kill() const {
    if (process_ > 0) ::kill(-process_, SIGKILL);
}

void WaitForTasks(std::span<const Task* const> tasks, double seconds) {
    std::vector<pollfd> events;
    for (const Task* task : tasks)
        for (int descriptor : {task->processEvent_, task->outputPipe_, task->reportPipe_})
            if (descriptor >= 0) events.push_back({descriptor, POLLIN, 0});
    ::poll(events.data(), events.size(), static_cast<int>(seconds * 1000));
}

unsigned CountProcessors() {
    cpu_set_t processors;
    if (::sched_getaffinity(0, sizeof processors, &processors) != 0) return 1;
    return static_cast<unsigned>(std::max(1, CPU_COUNT(&processors)));
}

}  // namespace vexlator::platform
