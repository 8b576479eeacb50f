// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/Records.h"
#include "background/styling/LayerStyles.h"
#include "background/styling/MobileStyleLook.h"
#include "render/Painter.h"

#include <vector>

namespace vexlator::render {

/// How packages look: areas can be seen through, thick lines are this wide.
constexpr unsigned areaAlpha = 0x59;
constexpr std::int32_t thickWeight = 80;  ///< hundredths of a millimetre

/// What a background style makes of a scene's layers.
struct StyledLayers {
    LayerPens pens;
    std::vector<bool> hidden;
};

/// In the colours of the device; what has a mobile style is drawn by it. Thick lines are thick; the zoom flag
/// shows only on the device. Layers without a style keep their own pens.
StyledLayers StyleLayers(const Scene& scene, const background::LayerStyles& styles,
                         const background::MobileStyles& mobileStyles);

/// An element of a package, drawn as a point, line or area. What has a mobile style is drawn by it.
Pen PenOfElement(const background::ElementHeader& header, std::size_t column,
                 const background::MobileStyles& mobileStyles);

/// A mobile style for points, lines and areas alike, as the map draws it.
Pen PenOfMobileStyle(const background::MobileStyleLook& look, std::size_t column);

}  // namespace vexlator::render
