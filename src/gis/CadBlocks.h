// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/Drawing.h"

#include <gdal.h>
#include <map>
#include <memory>
#include <ogr_api.h>
#include <set>
#include <string>
#include <string_view>

namespace vexlator::gis {

/// The blocks of a CAD file, each a drawing of its own with the blocks that it shows.
class CadBlocks {
public:
    explicit CadBlocks(config::Run& run) : run_(run) {}

    /// Reads GDAL's layer of blocks. @throws platform::ReadError
    void Read(OGRLayerH layer, const std::string& file);
    /// Adds a block to a drawing that shows it. One without contents is a name only.
    void AddTo(drawing::Drawing& drawing, const std::string& name);
    /// Tells of blocks that contain themselves or are too large.
    void Report(const std::string& file) const;

private:
    struct Block {
        std::unique_ptr<drawing::Drawing> content = std::make_unique<drawing::Drawing>();
        std::set<std::string> shown = {};  ///< blocks
        bool isOpen = false;               ///< its bytes are being made
        bool isMade = false;
        std::string bytes = {};
    };

    const std::string& BytesOf(const std::string& name);

    config::Run& run_;
    std::map<std::string, Block, std::less<>> blocks_;
    std::set<std::string> endless_, large_;
};

}  // namespace vexlator::gis
