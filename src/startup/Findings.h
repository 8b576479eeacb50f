// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::startup {

struct Finding {
    std::string text;          ///< one line: the value or key, and its fault
    std::string mend;          ///< the remedy, in words
    std::string section, key;  ///< the affected key, as declared or as in the file
};

/// Faults in the text of a gv.ini that a user should know: values with another meaning than they seem to
/// have, and the value used instead; ignored lines; keys that nothing reads, but that are similar to one of
/// `keys`. Other unknown keys may be another program's. Does not check folders.
std::vector<Finding> FindingsOf(std::string_view iniText, const config::KeyList& keys);

/// Why a key cannot have this value for a run, as in "[CSV] Qoute: nothing reads this; did you mean ..."; ""
/// if it can.
std::string WhyNotSet(const config::IniOverride& setting, const config::KeyList& keys);

}  // namespace vexlator::startup
