// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/styling/MobileStyles.h"
#include "background/styling/modGRPstyling.h"
#include "util/NoCaseMap.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::background {

/// Class bytes B and C of an element that is drawn by a style.
struct ClassBytes {
    std::uint8_t b = 0;  ///< number of the mobile style
    std::uint8_t c = 0;  ///< colour code, 1 for a mobile style; 16 more when thick, 32 more for the zoom flag
    bool operator==(const ClassBytes&) const = default;
};

/// A style row as elements need it.
struct LayerStyle {
    ClassBytes points, lines, areas;
    bool hidden = false;  ///< nothing of the layer is written
    bool operator==(const LayerStyle&) const = default;
};

/// The rows of a style by layer, worked out once.
class LayerStyles {
public:
    LayerStyles(std::span<const StyleRow> rows, const MobileStyles& mobileStyles);
    LayerStyles(const LayerStyles&) = delete;
    LayerStyles& operator=(const LayerStyles&) = delete;

    /// The style of a layer, its name in any letter case: that of the first row of this name, or of the
    /// DEFAULT row when there is none or when it names neither colour nor style and does not hide the layer.
    /// Null when there is no DEFAULT row either. A hash look-up; good as long as this object.
    const LayerStyle* StyleFor(std::string_view layerName) const;

private:
    std::vector<std::string> names_;
    std::vector<LayerStyle> styles_;
    util::NoCaseMap<const LayerStyle*> byLayer_;  ///< null: the DEFAULT row has a say
    const LayerStyle* default_ = nullptr;
};

}  // namespace vexlator::background
