// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/NoCaseMap.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What a cell of a style row may name: one of eight colours, or a style of the device's mobile style file.
namespace vexlator::background {

struct NamedColour {
    std::string_view name;
    std::uint8_t code;  ///< as the device counts colours
};
constexpr std::array<NamedColour, 8> styleColours = {{{"Black", 0},
                                                      {"Red", 2},
                                                      {"Green", 3},
                                                      {"Blue", 4},
                                                      {"Cyan", 5},
                                                      {"Purple", 6},
                                                      {"Yellow", 11},
                                                      {"Gray", 12}}};

/// The code of a colour name in any letter case.
std::optional<std::uint8_t> ColourCode(std::string_view name);

/// A mobile style file: one style a line, its name, "=", and fields with commas between, the first of which
/// is the type: P for points, S for lines, A for areas.
class MobileStyles {
public:
    /// `text` is that of a file (ReadStyleText()), in UTF-8 or Windows-1252.
    explicit MobileStyles(std::string_view text = {});
    MobileStyles(const MobileStyles&) = delete;
    MobileStyles& operator=(const MobileStyles&) = delete;

    /// The number by which elements name a style: that of the first line, counted from 0, that starts with
    /// the name, in any letter case, and "=". 0 when there is none.
    std::uint32_t NumberOf(std::string_view name) const;

    /// What cells of a column offer, with bars between: the colours, a separator, the styles of the type (""
    /// for all) and an entry to select another file. Without file, neither separator nor styles.
    std::string ListFor(std::string_view type) const;

private:
    std::string text_;
    std::vector<std::string_view> lines_;
    util::NoCaseMap<std::uint32_t> numbers_;  ///< by what stands before the first "="
};

}  // namespace vexlator::background
