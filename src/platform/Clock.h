// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace vexlator::platform {

/// A local date and time as numbers, without a zone.
struct DateTime {
    int year = 1970, month = 1, day = 1, hour = 0, minute = 0, second = 0;
    bool operator==(const DateTime&) const = default;
};

/// The source of the time. A run has one, so that tests can fix the time.
using Clock = std::function<DateTime()>;

/// The computer's local time.
DateTime LocalTime();

}  // namespace vexlator::platform
