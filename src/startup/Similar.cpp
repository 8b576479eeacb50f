// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Similar.h"

#include <algorithm>

namespace vexlator::startup {

bool IsOneSlipFrom(std::string_view word, std::string_view meant) {
    while (!word.empty() && !meant.empty() && word.front() == meant.front()) {
        word.remove_prefix(1);
        meant.remove_prefix(1);
    }
    while (!word.empty() && !meant.empty() && word.back() == meant.back()) {
        word.remove_suffix(1);
        meant.remove_suffix(1);
    }
    bool changedPlaces = word.size() == 2 && meant.size() == 2 && word[0] == meant[1] && word[1] == meant[0];
    return changedPlaces || std::max(word.size(), meant.size()) <= 1;
}

}  // namespace vexlator::startup
