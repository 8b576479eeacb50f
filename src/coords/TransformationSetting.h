// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"

#include <string>
#include <vector>

namespace vexlator::coords {

/// Where grids are looked for.
struct GridFolders {
    std::vector<std::string> inOrder;
    std::string forNew;  ///< the one of them in which a person should put a grid that is missing
};
GridFolders GridFoldersOf(const config::Run& run);

/// What [GPS] TRANSFORMATION of gv.ini says of the drawings' coordinates.
struct TransformationSetting {
    enum class Kind {
        CorrectionGrid,  ///< no definition: they are in the British National Grid
        Degrees,         ///< the path of the definition file holds "LatLng"
        Definition       ///< a coordinate system or an operation
    };
    Kind kind = Kind::CorrectionGrid;
    std::string value;  ///< path of the definition file, or the definition itself
    bool isFile = false;
    bool isSet = false;  ///< in gv.ini

    /// For people: which file, or the definition itself.
    std::string Name() const;
    /// The text of the definition. @throws platform::ReadError
    std::string Definition() const;
    /// A definition of the coordinate system that drawings are in; it may turn out to be an operation.
    /// @throws platform::ReadError
    std::string DrawingSystem() const;
};
TransformationSetting ReadTransformationSetting(const config::Run& run);

/// The definition in a small file. @throws platform::ReadError
std::string ReadDefinition(const std::string& path);
/// Whether a file can be read and is the definition of a coordinate system or an operation.
bool HoldsDefinition(const std::string& path);

config::KeyList CoordinateKeys();

}  // namespace vexlator::coords
