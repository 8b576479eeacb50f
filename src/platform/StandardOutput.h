// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Standard output of programs whose purpose it is to print.
namespace vexlator::platform {

/// Standard output cannot take more. `reason` is the system's; "" when its reader has had enough, which needs
/// no message.
struct OutputError {
    std::string reason;
};

/// @throws OutputError
void Print(std::string_view text);
/// Sends out what is printed so far. @throws OutputError
void FinishPrinting();

}  // namespace vexlator::platform
