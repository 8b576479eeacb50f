// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

/// How the files of a set take their places so that all of them change or none. For the files of this folder
/// only.
///
/// Every old file keeps a second name until the last new one has moved, and a file in the folder, the list,
/// names all that are being moved. A run that finds the list of a killed one finishes the move, or undoes it
/// where it cannot be finished.
namespace vexlator::platform {

/// A finished file on its way into place.
struct SetMember {
    std::string temporary, target;  ///< native paths
    ino_t number = 0;               ///< of the file, which tells it from one that somebody else puts there
    std::string kept = {};          ///< what the old file is called meanwhile; "" when there is none
};

/// Moves all files, or none. Waits for another set that is being moved in `folder`, and ends the move of a
/// killed run. Members in other folders, to which symbolic links led, are moved and brought back like the
/// others, but do not stand in the list.
/// @throws WriteError: the file that could not be moved, and whether the old files are back
void MoveTogether(const std::string& folder, std::vector<SetMember> members);

/// Ends the move that a killed run of this user left in a folder, if there is one. False when there is one of
/// somebody else, who needs the temporary files of the folder to end it.
bool EndAbandonedMove(const std::string& folder);

/// Whether a temporary name is that of a list or of an old file that a list names: they go with the move.
bool BelongsToMove(std::string_view name);

}  // namespace vexlator::platform
