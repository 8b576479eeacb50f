// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FileMark.h"
#include "platform/NativeFiles.h"

#include <string>
#include <string_view>
#include <vector>

/// Moves the files of a set into place so that all of them change or none. For the files of this folder only.
///
/// Every old file keeps a second name until the last new one has moved, and a file in the folder, the list,
/// names all files of the move. A run that finds the list of a killed run finishes the move, or undoes it if
/// it cannot be finished. It does not touch files that others have put there meanwhile.
namespace vexlator::platform {

/// A finished file on its way into place. An entry without a file is a twin of a target, to be deleted after
/// the moves.
struct SetMember {
    std::string temporary, target;  ///< native paths
    FileMark ours = {}, old = {};   ///< marks of the new file and of the file that it replaces, if any
    std::string kept = {};          ///< temporary name of the old file; "" if there is none
};

/// Moves all files or none, and removes the twins. No two files have the same target. Waits for another set
/// that is being moved in `folder`, and ends the move of a killed run. Members in other folders (targets of
/// symbolic links) are moved and restored like the others, but are not in the list.
/// @throws WriteError: the file that could not be moved, and whether the old files are restored
void MoveTogether(const std::string& folder, std::vector<SetMember> members, const Twins& twins);

/// Ends the move that a killed run of this user left in a folder, if there is one. Returns a message for the
/// user about the outcome; mostly "".
std::string EndAbandonedMove(const std::string& folder);

/// Whether a move in a folder is in progress or unfinished: another user's, or one that cannot be ended now.
/// It needs the temporary files of the folder.
bool HasMove(const std::string& folder);

/// Whether a temporary name belongs to a list.
bool IsMoveList(std::string_view name);

}  // namespace vexlator::platform
