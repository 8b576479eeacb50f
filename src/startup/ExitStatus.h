// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

namespace vexlator::startup {

/// The exit status of a run.
enum class ExitStatus : int {
    Done = 0,
    Failed = 1,       ///< the conversion failed; the user has seen a message
    NotUsable = 2,    ///< the installation or the program's options are not usable
    NothingToDo = 3,  ///< nothing converts this format, the command is not understood, or there is no window
    StoppedByUser = 4,  ///< the answer to a question ended the run
    Lossy = 5,          ///< done with losses, which the caller takes for a failure
    Interrupted = 130,  ///< a signal ended the run; a program then ends by the same signal
};

}  // namespace vexlator::startup
