// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "formats/job/TextIndex.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::importer {

/// The inserts made from a job file, by point number. A point that is measured again replaces the earlier
/// one. Letter case is ignored. The point numbers must outlive the object.
class UsedPoints {
public:
    void EraseEarlier(std::string_view number, drawing::Drawing& drawing);
    void Add(std::string_view number, drawing::Entity insert);

private:
    std::uint32_t IndexOf(std::string_view number);

    static constexpr std::uint32_t noEntity = 0xFFFFFFFF;

    formats::TextIndex numbers_;
    std::vector<std::uint32_t> entities_;  ///< by the number's index in numbers_
    std::deque<std::string> lowered_;      ///< numbers with capital letters
};

}  // namespace vexlator::importer
