// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/HeldErrors.h"

#include <atomic>
#include <cstdio>
#include <mutex>

namespace vexlator::platform {

namespace {

std::atomic<std::uint64_t> bytesDropped;

ssize_t Drop(void*, const char*, std::size_t size) {
    bytesDropped += size;
    return static_cast<ssize_t>(size);
}

/// The C library documents `stderr` as a variable that a program may set.
struct Redirection {
    std::mutex mutex;
    unsigned holders = 0;
    std::FILE* shown = nullptr;
    std::FILE* dropped = nullptr;
};

Redirection& TheRedirection() {
    static Redirection redirection;
    return redirection;
}

}  // namespace

HeldErrors::HeldErrors() : before_(bytesDropped) {
    Redirection& to = TheRedirection();
    std::lock_guard lock(to.mutex);
    if (to.holders++ > 0) return;
    if (!to.dropped) {
        cookie_io_functions_t functions{};
        functions.write = Drop;
        to.dropped = ::fopencookie(nullptr, "w", functions);
        if (to.dropped) std::setvbuf(to.dropped, nullptr, _IONBF, 0);
    }
    to.shown = stderr;
    if (to.dropped) stderr = to.dropped;
}

HeldErrors::~HeldErrors() {
    Redirection& to = TheRedirection();
    std::lock_guard lock(to.mutex);
    if (--to.holders == 0) stderr = to.shown;
}

bool HeldErrors::Any() const {
    return bytesDropped > before_;
}

}  // namespace vexlator::platform
