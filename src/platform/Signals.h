// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

namespace vexlator::platform {

/// A program's main() calls this first, so that trouble with files gives a message and an exit status instead
/// of a signal. A write to a pipe without a reader, or past the size limit of a file, is an error of that
/// write. If another program shortens a mapped file during reading, this process ends with a message and exit
/// status 1. Outputs are then unchanged, because none is in place yet.
void HandleFileSignals();

/// Thrown where a run can stop after a request to stop. It is not a std::exception, because conversions catch
/// those to go on with the next file.
struct Stopped {};

/// From now on the signals INT and TERM ask the run to stop. It ends at the next ThrowIfStopped(): temporary
/// files are removed, and outputs that are not being moved into place stay unchanged. A second signal ends
/// the process at once. A signal that the caller of this program ignores stays ignored.
void StopOnSignals();

/// Cheap enough for every feature. @throws Stopped
void ThrowIfStopped();

/// Call after the work has stopped: messages can be written again, because ThrowIfStopped() no longer throws.
void AcceptStop();

/// Ends the process by the signal that stopped the run, as the caller of an interrupted program expects. Does
/// nothing without such a signal.
void EndBySignal();

}  // namespace vexlator::platform
