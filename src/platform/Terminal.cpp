// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Terminal.h"

#include <cstdlib>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

namespace vexlator::platform {

bool IsTerminal(std::FILE* stream) {
    if (!::isatty(::fileno(stream))) return false;
    const char* terminal = std::getenv("TERM");
    return !terminal || std::string_view(terminal) != "dumb";
}

std::size_t TerminalWidth(std::FILE* stream) {
    winsize size{};
    bool told = ::ioctl(::fileno(stream), TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return told ? size.ws_col : 80;
}

}  // namespace vexlator::platform
