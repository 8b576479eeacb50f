// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/UserInterface.h"
#include "util/Numbers.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::background {

/// One message for all that a package could not take for one reason; none when there is nothing.
inline void ShowCount(ui::UserInterface& ui, std::uint64_t count, std::string_view what) {
    if (count > 0) ui.ShowMessage(std::string(what) + ": " + util::GroupedCount(count));
}

}  // namespace vexlator::background
