// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/gml/GmlElements.h"
#include "formats/gml/GmlReference.h"

#include <cstddef>
#include <cstdint>

namespace vexlator::formats {

/// The role of an element for the reader.
enum class GmlScope : std::uint8_t { Outside, Holder, Feature, Property, Geometry, Skipped };

/// An element whose end tag has not come yet.
struct GmlOpenElement {
    GmlScope scope = GmlScope::Outside;
    GmlElement element = GmlElement::Other;
    bool reversed = false;  ///< a curve in reverse order
    bool beginsPart = false;
    bool isGml = false;
    bool isSubstitute = false;  ///< a geometry of another namespace
    bool isFeature = false;     ///< a geometry that is a feature itself
    GmlReference reference;
    std::size_t firstPoint = 0;  ///< number of points before it
};

}  // namespace vexlator::formats
