// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vexlator::platform {

/// While one lives, what libraries print to the C library's `stderr` is dropped. Streams that the program
/// took before, as its user interface has, print as ever. Several may live, in whatever order they end.
class HeldErrors {
public:
    HeldErrors();
    ~HeldErrors();
    HeldErrors(const HeldErrors&) = delete;
    HeldErrors& operator=(const HeldErrors&) = delete;

    /// Whether anything was dropped since this one was made.
    bool Any() const;

private:
    std::uint64_t before_;
};

}  // namespace vexlator::platform
