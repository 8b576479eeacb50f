// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/styling/MobileStyleLook.h"

#include "background/package/PackageElements.h"
#include "background/styling/MobileStyles.h"
#include "platform/AsciiCase.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace vexlator::background {

namespace {

constexpr double largestWidth = 64, leastSymbol = 8;

/// The place of a name in a table, 0 when it is not there.
template <typename Value, std::size_t size>
Value NamedOf(const std::array<std::string_view, size>& names, std::string_view name) {
    for (std::size_t i = 0; i < size; ++i)
        if (platform::SameNoCase(names[i], name)) return static_cast<Value>(i);
    return Value{};
}

}  // namespace

double MobileStyleLook::SymbolSize() const {
    return std::max(leastSymbol, 2 * width);
}

std::uint32_t RgbOfColour(std::string_view colour) {
    if (auto code = ColourCode(colour)) {
        ElementHeader header{};
        header.classA = 255;  // no theme
        header.classC = *code;
        return LookOf(header).rgb;
    }
    std::uint32_t rgb = 0;
    if (colour.size() != 7 || colour[0] != '#') return 0;
    auto [end, error] = std::from_chars(colour.data() + 1, colour.data() + 7, rgb, 16);
    return error == std::errc() && end == colour.data() + 7 ? rgb : 0;
}

MobileStyleLook LookOfFields(std::string_view fields) {
    auto field = [&](int index) { return std::string(util::Trim(util::GetCommaField(index, fields))); };
    MobileStyleLook look;
    look.rgb = RgbOfColour(field(1));
    double width = util::NumberOf(field(2));
    if (width > 0) look.width = std::min(width, largestWidth);
    look.pattern = NamedOf<MobilePattern>(mobilePatterns, field(3));
    look.symbol = NamedOf<MobileSymbol>(mobileSymbols, field(4));
    return look;
}

}  // namespace vexlator::background
