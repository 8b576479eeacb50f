// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::startup {

struct Finding {
    std::string text;          ///< a line: which value or key, and what is wrong with it
    std::string mend;          ///< what puts it right, in words
    std::string section, key;  ///< the key that it is about, as it is declared or as it stands
};

/// What a person should know of the text of a gv.ini: values that do not mean what they seem to,
/// and what counts instead; lines that do not count; keys that nothing reads, but that look like one of
/// `keys`. Keys that look like none may be another program's. Says nothing of folders.
std::vector<Finding> FindingsOf(std::string_view iniText, const config::KeyList& keys);

/// Why a key cannot have this value for a run, as in "[CSV] Qoute: nothing reads this; did you mean ...";
/// "" when it can.
std::string WhyNotSet(const config::IniOverride& setting, const config::KeyList& keys);

}  // namespace vexlator::startup
