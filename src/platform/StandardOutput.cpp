// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/StandardOutput.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace vexlator::platform {

namespace {

[[noreturn]] void Fail(int error) {
    throw OutputError{error == EPIPE ? "" : std::strerror(error)};
}

}  // namespace

void Print(std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) Fail(errno);
}

void FinishPrinting() {
    if (std::fflush(stdout) != 0) Fail(errno);
}

}  // namespace vexlator::platform
