// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace vexlator::startup {

/// Whether the coordinate library of the workflow software lies where its coordinate tools expect it.
struct CoordinateLibrary {
    enum class State {
        Fine,     ///< there, or the workflow software is not installed
        CanCopy,  ///< missing, but the installation has a copy
        Missing
    };
    State state = State::Fine;
    std::string expected, installed;  ///< paths

    /// What a person is asked or told; "" when all is fine.
    std::string Message() const;
    /// Copies the installation's file to where it is expected. False when it is not there afterwards.
    bool Copy() const;
};

CoordinateLibrary CheckCoordinateLibrary();

}  // namespace vexlator::startup
