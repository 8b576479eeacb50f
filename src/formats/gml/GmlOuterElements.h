// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace vexlator::formats {

/// An element that may be or contain a feature.
struct GmlOuterElement {
    std::string name;        ///< with its prefix
    std::string identifier;  ///< may be empty
    bool isGml = false;
    bool holdsFeatures = false;
    bool hasOwnValue = false;       ///< it has a child element outside of the gml namespace with a value
    std::size_t firstProperty = 0;  ///< number of values before it
    std::size_t textBefore = 0;     ///< size of these values in bytes

    bool IsCollection() const { return name.ends_with("Collection"); }
};

/// The element to which a geometry outside of members belongs.
struct GmlOwner {
    bool isGeometryItself = false;
    std::size_t element = 0;  ///< else an index
};

/// Finds the owner of a geometry. `around`: the elements around it, the root first. The owner is
/// - the root, if it has an identifier and values of its own, else the outermost element with an identifier;
/// - without identifiers, the element whose child contains the geometry, or the one that contains it
///   directly: an element with values is a feature; names of GML objects begin with a capital letter, names
///   of properties with a small one;
/// - the geometry itself, if only a collection is around it.
///
/// Collections and elements of the gml namespace own nothing, so there can be no owner.
std::optional<GmlOwner> OwnerOfGeometry(std::span<const GmlOuterElement> around, std::size_t valuesRead);

}  // namespace vexlator::formats
