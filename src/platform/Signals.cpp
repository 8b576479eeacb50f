// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Signals.h"

#include <csignal>
#include <string_view>
#include <unistd.h>

namespace vexlator::platform {

namespace {

/// Only what a signal handler may call.
void EndForShortenedFile(int) {
    constexpr std::string_view message =
        "message: A file was made shorter by another program while it was read; the run ends here\n";
    [[maybe_unused]] ssize_t written = ::write(STDERR_FILENO, message.data(), message.size());
    ::_exit(1);
}

}  // namespace

void HandleFileSignals() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGBUS, EndForShortenedFile);
}

}  // namespace vexlator::platform
