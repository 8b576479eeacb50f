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

/// Class bytes B and C of an element drawn by a style.
struct ClassBytes {
    std::uint8_t b = 0;  ///< number of the mobile style
    std::uint8_t c = 0;  ///< colour code, 1 for a mobile style; plus 16 if thick, plus 32 for the zoom flag
    bool operator==(const ClassBytes&) const = default;
};

/// A style row in the form that elements need.
struct LayerStyle {
    ClassBytes points, lines, areas;
    bool hidden = false;  ///< the layer is not written
    bool operator==(const LayerStyle&) const = default;
};

/// The rows of a style by layer, computed once.
class LayerStyles {
public:
    LayerStyles(std::span<const StyleRow> rows, const MobileStyles& mobileStyles);
    LayerStyles(const LayerStyles&) = delete;
    LayerStyles& operator=(const LayerStyles&) = delete;

    /// The style of a layer, its name in any letter case: that of the first row with this name. It is that of
    /// the DEFAULT row if there is none, or if the row names neither colour nor style and does not hide the
    /// layer. Null if there is no DEFAULT row either. A hash look-up; valid as long as this object.
    const LayerStyle* StyleFor(std::string_view layerName) const;

private:
    std::vector<std::string> names_;
    std::vector<LayerStyle> styles_;
    util::NoCaseMap<const LayerStyle*> byLayer_;  ///< null: the DEFAULT row decides
    const LayerStyle* default_ = nullptr;
};

}  // namespace vexlator::background
