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

/// The possible values of a cell of a style row: one of eight colours, or a style of the device's mobile
/// style file.
namespace vexlator::background {

struct NamedColour {
    std::string_view name;
    std::uint8_t code;  ///< by the device's numbers
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

/// A mobile style file, with one style per line: its name, "=", and fields separated by commas. The first
/// field is the type: P for points, S for lines, A for areas.
class MobileStyles {
public:
    /// `text` is the text of a file (ReadStyleText()), in UTF-8 or Windows-1252.
    explicit MobileStyles(std::string_view text = {});
    MobileStyles(const MobileStyles&) = delete;
    MobileStyles& operator=(const MobileStyles&) = delete;

    /// The number by which elements refer to a style: that of the first line, counted from 0, that starts
    /// with the name, in any letter case, and "=". 0 if there is none.
    std::uint32_t NumberOf(std::string_view name) const;

    /// The names of the styles of a type ("" for all), in the file's order.
    std::vector<std::string_view> NamesOf(std::string_view type) const;
    /// What stands behind the name of the style of that number; "" when there is none.
    std::string_view FieldsOf(std::uint32_t number) const;

    /// What cells of a column offer, with bars between: the colours, a separator, the styles of the type (""
    /// for all) and an entry to select another file. Without file, neither separator nor styles.
    std::string ListFor(std::string_view type) const;

private:
    std::string text_;
    std::vector<std::string_view> lines_;
    util::NoCaseMap<std::uint32_t> numbers_;  ///< by the text before the first "="
};

}  // namespace vexlator::background
