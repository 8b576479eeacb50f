// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"

#include <string>
#include <vector>

namespace vexlator::coords {

/// The folders of grids.
struct GridFolders {
    std::vector<std::string> inOrder;
    std::string forNew;  ///< the folder in which a user should put a missing grid
};
GridFolders GridFoldersOf(const config::Run& run);

/// The drawings' coordinate system by [GPS] TRANSFORMATION of gv.ini.
struct TransformationSetting {
    enum class Kind {
        CorrectionGrid,  ///< no definition: the British National Grid
        Degrees,         ///< the path of the definition file contains "LatLng"
        Definition       ///< a coordinate system or an operation
    };
    Kind kind = Kind::CorrectionGrid;
    std::string value;  ///< path of the definition file, or the definition itself
    bool isFile = false;
    bool isSet = false;  ///< set in gv.ini

    /// For the user: the name of the file, or the definition itself.
    std::string Name() const;
    /// The text of the definition. @throws platform::ReadError
    std::string Definition() const;
    /// A definition of the drawings' coordinate system; it can prove to be an operation.
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
