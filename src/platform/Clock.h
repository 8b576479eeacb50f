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

/// What tells the time; a run has one, so that tests can fix it.
using Clock = std::function<DateTime()>;

/// The computer's local time.
DateTime LocalTime();

}  // namespace vexlator::platform
