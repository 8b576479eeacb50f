// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "batch/Options.h"
#include "startup/Conversions.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace vexlator::batch {

/// The reason why the given list, folder or input gives no commands.
class ListError : public std::runtime_error {
public:
    using runtime_error::runtime_error;
};

struct CommandList {
    std::vector<std::string> commands;  ///< each once, in the order of the list
    std::string name;                   ///< native path of the list or folder; "standard input"
    std::string journal;                ///< native path of the list's companion files
    std::vector<std::string> remarks;   ///< what was left out, for the user
};

/// The commands of the list, the folder or standard input. @throws ListError, platform::ReadError
CommandList ReadCommands(const Options& options, const startup::Conversions& conversions);

}  // namespace vexlator::batch
