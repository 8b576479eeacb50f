// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "util/Log.h"

#include "platform/Files.h"
#include "util/Dates.h"

#include <algorithm>

namespace vexlator::util {

void WriteRunLog(std::string_view logPath, std::string_view text, const platform::DateTime& when) {
    if (logPath.empty()) return;
    std::string line = DayMonthText(when) + " " + TimeText(when) + ": ";
    line += text;
    // One event, one line. A text from a file must not look like another event.
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    platform::AppendToFile(logPath, line + "\r\n");
}

}  // namespace vexlator::util
