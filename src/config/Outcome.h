// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace vexlator::config {

/// How a conversion ended when it did not throw. Start() of every conversion returns one.
struct Outcome {
    enum class Status {
        Done,
        Failed,        ///< a source could not be read; the user has seen a message
        StoppedByUser  ///< the answer to a question ended it; nothing was written
    };
    Status status = Status::Done;
    std::uint64_t layers = 0;
    std::uint64_t features = 0;
    std::string target;  ///< path text of the folder or file that was written
};

}  // namespace vexlator::config
