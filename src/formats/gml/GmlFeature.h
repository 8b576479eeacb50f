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

/// A sequence of a feature's points that becomes one entity.
struct GmlPart {
    enum class Kind : std::uint8_t {
        Path,  ///< a point or a line, by the number of points
        Ring,  ///< an outer ring
        Hole
    };
    Kind kind = Kind::Path;
    std::size_t begin = 0;    ///< index of its first point; it ends at the start of the next part
    std::size_t surface = 0;  ///< for rings and holes: the surface of the feature, from 1
};

/// One feature of a GML file.
struct GmlFeature {
    std::string type;        ///< without namespace prefix
    std::string identifier;  ///< from its start tag; may be empty
    std::vector<GmlProperty> properties;
    std::vector<util::PlanePoint> points;
    std::vector<GmlPart> parts;  ///< none of them is empty
    std::size_t surfaces = 0;
    bool threeDimensional = false;  ///< its points had three values
    bool hasArcs = false;           ///< curves drawn as straight lines
    std::string damage;             ///< line and reason of missing points, although the file has some

    std::size_t PartEnd(std::size_t part) const {
        return part + 1 < parts.size() ? parts[part + 1].begin : points.size();
    }
    /// Keeps its memory for the next feature.
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
