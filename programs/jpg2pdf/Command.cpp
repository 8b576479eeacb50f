// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "jpg2pdf/Command.h"

namespace vexlator::jpg2pdf {

Command ParseCommand(const std::vector<std::string>& arguments) {
    Command command;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "-c" || argument == "-o") {
            if (++i == arguments.size()) throw WrongUse(argument + ": no file is named after it");
            (argument == "-c" ? command.configuration : command.output) = arguments[i];
        } else if (argument.starts_with("-")) {
            throw WrongUse("there is no option " + argument);
        } else if (!argument.empty()) {
            command.images.push_back(argument);
        }
    }
    if (command.output.empty()) throw WrongUse("-o: no output is named");
    if (command.images.empty() && command.configuration.empty()) throw WrongUse("no image is named");
    return command;
}

}  // namespace vexlator::jpg2pdf
