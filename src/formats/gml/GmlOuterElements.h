// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace vexlator::formats {

/// An element that may be a feature, or hold some.
struct GmlOuterElement {
    std::string name;        ///< with its prefix
    std::string identifier;  ///< may be empty
    bool isGml = false;
    bool holdsFeatures = false;
    bool hasOwnValue = false;       ///< a child element outside of the gml namespace is a value
    std::size_t firstProperty = 0;  ///< values that were read before it
    std::size_t textBefore = 0;     ///< bytes of those

    bool IsCollection() const { return name.ends_with("Collection"); }
};

/// Which element a geometry outside of members belongs to.
struct GmlOwner {
    bool isGeometryItself = false;
    std::size_t element = 0;  ///< else an index
};

/// `around`: the elements around the geometry, the root first. The owner is
/// - the root, when it has an identifier and values of its own, or else the outermost element with an
/// identifier;
/// - without identifiers, the element whose child holds the geometry, or the one that holds it directly: an
/// element with values is a feature, and objects of GML begin with a capital, properties with a small letter;
/// - the geometry itself, when nothing but a collection is around it.
/// Collections own nothing, nor do elements of the gml namespace, so that there may be no owner.
std::optional<GmlOwner> OwnerOfGeometry(std::span<const GmlOuterElement> around, std::size_t valuesRead);

}  // namespace vexlator::formats
