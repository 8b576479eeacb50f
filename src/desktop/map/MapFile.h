// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/EntityDetails.h"
#include "render/Scene.h"

#include <memory>
#include <string>

namespace vexlator::desktop {

/// A drawing or package to look at.
struct MapFile {
    std::string path;
    std::shared_ptr<const render::Scene> scene;
    bool isPackage = false;
    std::string notice;  ///< contents that could not be shown, one line each; "" if there are none

    /// The entity or element of an item. Costs a pass over the file of a drawing. @throws platform::ReadError
    render::EntityDetails DetailsOfItem(std::size_t item) const;
};

/// @throws platform::ReadError: file, place and reason
MapFile ReadMapFile(const std::string& path, const std::string& symbolsFolder);

}  // namespace vexlator::desktop
