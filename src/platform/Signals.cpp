// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Signals.h"

#include <csignal>
#include <string_view>
#include <unistd.h>

namespace vexlator::platform {

namespace {

volatile std::sig_atomic_t stopSignal = 0;
bool stopIsAccepted = false;

void NoteSignal(int signal) {
    stopSignal = signal;
}

/// Calls only functions that a signal handler may call.
void EndForShortenedFile(int) {
    constexpr std::string_view message =
        "message: Another program shortened a file while it was read; the run ends here\n";
    [[maybe_unused]] ssize_t written = ::write(STDERR_FILENO, message.data(), message.size());
    ::_exit(1);
}

}  // namespace

void HandleFileSignals() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGBUS, EndForShortenedFile);
}

void StopOnSignals() {
    for (int signal : {SIGINT, SIGTERM}) {
        struct sigaction action {};
        if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) continue;
        action.sa_handler = NoteSignal;
        // Without SA_RESTART: a wait for an answer or a lock must be interrupted.
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        ::sigaction(signal, &action, nullptr);
    }
}

void ThrowIfStopped() {
    if (stopSignal != 0 && !stopIsAccepted) throw Stopped();
}

void AcceptStop() {
    stopIsAccepted = true;
}

void EndBySignal() {
    if (stopSignal == 0) return;
    std::signal(stopSignal, SIG_DFL);
    std::raise(stopSignal);
}

}  // namespace vexlator::platform
