// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <cstdint>
#include <string_view>

namespace vexlator::formats {

/// A group of a DXF file in text form: a line with its code, and one with its value.
struct DxfGroup {
    std::int64_t code = -1;
    std::string_view value = {};
};

class DxfGroups {
public:
    explicit DxfGroups(std::string_view text) : lines_(text) {}
    /// False at the end of the text.
    bool Next(DxfGroup& group) {
        if (lines_.AtEnd()) return false;
        group.code = util::IntegerOf(util::Trim(lines_.ReadTextLine(), util::lineBlanks));
        group.value =
            lines_.AtEnd() ? std::string_view() : util::Trim(lines_.ReadTextLine(), util::lineBlanks);
        return true;
    }

private:
    util::LineReader lines_;
};

}  // namespace vexlator::formats
