// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

namespace vexlator::platform {

/// What a program's main() calls first, so that trouble with files has a message and an exit status instead
/// of a signal. Writing to a pipe that nobody reads, or past the largest size that a file may have, is an
/// error of that write. A mapped file that another program shortens while it is read ends this process with a
/// message and exit status 1; outputs are then as they were, since none has been put in place.
void HandleFileSignals();

}  // namespace vexlator::platform
