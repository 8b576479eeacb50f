// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace vexlator::jpg2pdf {

/// A command line that is not understood; what() says why.
struct WrongUse : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Command {
    std::vector<std::string> images;  ///< path texts, which may have wildcards
    std::string configuration;        ///< path text; "": none
    std::string output;               ///< path text
};

/// @throws WrongUse
Command ParseCommand(const std::vector<std::string>& arguments);

}  // namespace vexlator::jpg2pdf
