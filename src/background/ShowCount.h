// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/UserInterface.h"
#include "util/Numbers.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::background {

/// Shows one message for all entities that a package left out for one reason; none for a count of 0.
inline void ShowCount(ui::UserInterface& ui, std::uint64_t count, std::string_view what) {
    if (count > 0) ui.ShowMessage(std::string(what) + ": " + util::GroupedCount(count));
}

}  // namespace vexlator::background
