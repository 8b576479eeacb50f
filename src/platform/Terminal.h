// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>

/// What a program knows of the terminal it runs in.
namespace vexlator::platform {

/// True when the stream is a terminal whose lines can be rewritten: not a file, a pipe or a "dumb" terminal.
bool IsTerminal(std::FILE* stream);

/// Columns of the terminal behind the stream; 80 when it does not tell.
std::size_t TerminalWidth(std::FILE* stream);

}  // namespace vexlator::platform
