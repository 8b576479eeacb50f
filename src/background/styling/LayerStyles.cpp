// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/styling/LayerStyles.h"

#include "platform/AsciiCase.h"

#include <limits>
#include <optional>

namespace vexlator::background {

namespace {

constexpr std::uint8_t mobileStyleColour = 1, thickFlag = 16, zoomFlag = 32;

ClassBytes BytesOf(const std::string& cell, const MobileStyles& mobileStyles) {
    if (std::optional<std::uint8_t> colour = ColourCode(cell)) return {0, *colour};
    std::uint32_t number = mobileStyles.NumberOf(cell);
    bool fits = number <= std::numeric_limits<std::uint8_t>::max();
    return {static_cast<std::uint8_t>(fits ? number : 0), mobileStyleColour};
}

LayerStyle StyleOf(const StyleRow& row, const MobileStyles& mobileStyles) {
    LayerStyle style{BytesOf(row.points, mobileStyles), BytesOf(row.lines, mobileStyles),
                     BytesOf(row.areas, mobileStyles), IsFlagOn(row.hide)};
    int flags = (IsFlagOn(row.thick) ? thickFlag : 0) + (IsFlagOn(row.zoom) ? zoomFlag : 0);
    for (ClassBytes* bytes : {&style.points, &style.lines, &style.areas})
        bytes->c = static_cast<std::uint8_t>(bytes->c + flags);
    return style;
}

bool SaysNothing(const StyleRow& row) {
    return row.points.empty() && row.lines.empty() && row.areas.empty() && !IsFlagOn(row.hide);
}

}  // namespace

LayerStyles::LayerStyles(std::span<const StyleRow> rows, const MobileStyles& mobileStyles) {
    names_.reserve(rows.size());
    styles_.reserve(rows.size());
    for (const StyleRow& row : rows) {
        names_.push_back(row.layer);
        styles_.push_back(StyleOf(row, mobileStyles));
        byLayer_.try_emplace(names_.back(), SaysNothing(row) ? nullptr : &styles_.back());
        if (!default_ && platform::SameNoCase(row.layer, defaultRowName)) default_ = &styles_.back();
    }
}

const LayerStyle* LayerStyles::StyleFor(std::string_view layerName) const {
    auto found = byLayer_.find(layerName);
    return found == byLayer_.end() || !found->second ? default_ : found->second;
}

}  // namespace vexlator::background
