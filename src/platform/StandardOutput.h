// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Standard output for programs that print their results.
namespace vexlator::platform {

/// Standard output cannot take more. `reason` is the system's; "" if the reader has closed it, which needs no
/// message.
struct OutputError {
    std::string reason;
};

/// @throws OutputError
void Print(std::string_view text);
/// Sends the text printed so far. @throws OutputError
void FinishPrinting();

}  // namespace vexlator::platform
