// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace vexlator::startup {

/// What has come of one source of a Go.
struct RowResult {
    enum class State { NotYet, Running, Done, Failed };

    std::string source = {};   ///< its path
    std::string package = {};  ///< path of the package's index that it becomes
    State state = State::NotYet;
    std::string reason = {};     ///< of Failed: one plain line
    std::uint64_t features = 0;  ///< of Done: in the package, where that is known; else 0
    double seconds = 0;          ///< that it took
};

}  // namespace vexlator::startup
