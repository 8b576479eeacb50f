// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vexlator::formats {

struct GmlProperty {
    std::string name, value;
};

/// A run of a feature's points that becomes one entity.
struct GmlPart {
    enum class Kind : std::uint8_t {
        Path,  ///< a point or a line: the number of points tells
        Ring,  ///< an outer ring
        Hole
    };
    Kind kind = Kind::Path;
    std::size_t begin = 0;    ///< its first point; it ends where the next part begins
    std::size_t surface = 0;  ///< rings and holes: the surface of the feature, from 1
};

/// One feature of a GML file.
struct GmlFeature {
    std::string type;        ///< without namespace prefix
    std::string identifier;  ///< of its start tag; may be empty
    std::vector<GmlProperty> properties;
    std::vector<util::PlanePoint> points;
    std::vector<GmlPart> parts;  ///< none of them empty
    std::size_t surfaces = 0;
    bool threeDimensional = false;  ///< its points had three values
    bool hasArcs = false;           ///< curves that are not drawn as such
    std::string damage;             ///< line and reason why it has no points, although the file gives it some

    std::size_t PartEnd(std::size_t part) const {
        return part + 1 < parts.size() ? parts[part + 1].begin : points.size();
    }
    /// Keeps the memory for the next feature.
    void Clear() {
        type.clear();
        identifier.clear();
        properties.clear();
        points.clear();
        parts.clear();
        damage.clear();
        surfaces = 0;
        threeDimensional = hasArcs = false;
    }
};

}  // namespace vexlator::formats
