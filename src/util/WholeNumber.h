// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Text.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace vexlator::util {

/// The number that the whole text forms, not only its start. Blanks around it are ignored. Finite.
inline std::optional<double> WholeNumberOf(std::string_view text) {
    text = Trim(text);
    double value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

inline bool IsWhollyNumber(std::string_view text) {
    return WholeNumberOf(text).has_value();
}

}  // namespace vexlator::util
