// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

namespace vexlator::platform {

/// What a program's main() calls first, so that trouble with files has a message and an exit status instead
/// of a signal. Writing to a pipe that nobody reads, or past the largest size that a file may have, is an
/// error of that write. A mapped file that another program shortens while it is read ends this process with a
/// message and exit status 1; outputs are then as they were, since none has been put in place.
void HandleFileSignals();

/// Thrown where a run that was asked to stop can do so. No std::exception: what a conversion catches to go on
/// with the next file must not catch this.
struct Stopped {};

/// From now on the signals INT and TERM ask the run to stop: it ends at the next ThrowIfStopped(), its
/// temporary files go, and outputs that are not yet being put in place stay as they were. A second signal
/// ends the process at once. A signal that the caller of this program has it ignore stays ignored.
void StopOnSignals();

/// Cheap enough for every feature. @throws Stopped
void ThrowIfStopped();

/// After the work has stopped: what is still to be told can be written, ThrowIfStopped() throws no more.
void AcceptStop();

/// Ends the process by the signal that stopped the run, as its caller expects of an interrupted program. Does
/// nothing when there was none.
void EndBySignal();

}  // namespace vexlator::platform
