// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Text.h"

#include <charconv>
#include <cmath>
#include <string_view>

namespace vexlator::util {

/// Whether the whole text is a finite number, not only its beginning; blanks around it do not count.
inline bool IsWhollyNumber(std::string_view text) {
    text = Trim(text);
    double value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() && std::isfinite(value);
}

}  // namespace vexlator::util
