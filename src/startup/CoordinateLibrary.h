// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace vexlator::startup {

/// Whether the coordinate library of the workflow software is where its coordinate tools expect it.
struct CoordinateLibrary {
    enum class State {
        Fine,     ///< exists, or the workflow software is not installed
        CanCopy,  ///< missing, but the installation has a copy
        Missing
    };
    State state = State::Fine;
    std::string expected, installed;  ///< paths

    /// The question or message for the user; "" if there is none.
    std::string Message() const;
    /// Copies the installation's file to the expected place. False if it is not there afterwards.
    bool Copy() const;
};

CoordinateLibrary CheckCoordinateLibrary();

}  // namespace vexlator::startup
