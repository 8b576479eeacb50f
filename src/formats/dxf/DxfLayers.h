// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::formats {

/// A layer by the table of a DXF file.
struct DxfLayer {
    std::string name;       ///< UTF-8
    bool isHidden = false;  ///< off or frozen
    int colourIndex = 7;    ///< of the palette of 256 colours
    std::int64_t rgb = -1;  ///< 0xRRGGBB; -1: the palette's colour counts
};

/// The layers of a DXF file in text form; none if it has no such table. Damaged tables give what stands
/// before the damage.
std::vector<DxfLayer> ReadDxfLayers(std::string_view text);

/// A text of a DXF file as UTF-8: its escapes \U+XXXX and ^J are characters.
std::string DecodeDxfText(std::string_view text);
/// The same for a text without escapes of the second kind.
std::string DecodeDxfEscapes(std::string_view text);

}  // namespace vexlator::formats
