// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Errors.h"

#include <string>

namespace vexlator::test {

/// The text of an action's error; "" if there is none.
template <typename Error = platform::ReadError, typename Action>
std::string ErrorOf(Action action) {
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    }
    return "";
}

}  // namespace vexlator::test
