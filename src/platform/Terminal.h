// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>

/// Facts about the terminal of a program.
namespace vexlator::platform {

/// True when the stream is a terminal whose lines can be rewritten: not a file, a pipe or a "dumb" terminal.
bool IsTerminal(std::FILE* stream);

/// Columns of the terminal behind the stream; 80 if it does not say.
std::size_t TerminalWidth(std::FILE* stream);

}  // namespace vexlator::platform
