// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "startup/Conversions.h"
#include "startup/go/SelectionSettings.h"
#include "ui/UserInterface.h"

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vexlator::startup {

/// Why a source has not become a package.
struct NotConverted : std::runtime_error {
    /// @param told true where what was last said to the person says more
    explicit NotConverted(const std::string& reason, bool told = false)
        : std::runtime_error(reason), isTold(told) {}
    bool isTold;
};

/// One source becomes one package. Operations end by an exception, or tell the person, when they fail.
class SourceConversion {
public:
    SourceConversion(config::Run& run, const Conversions& conversions, const SelectionSettings& choices);

    /// Does with the source what its kind asks for. `isOneOfList`: it is converted by itself, whatever chkAll
    /// says. Returns the features of the package, 0 when that is not known. @throws NotConverted and whatever
    /// conversions throw
    std::uint64_t Convert(const std::string& source, const std::string& package, bool isOneOfList);

    /// A drawing of any supported source, in TempDirectory; "" when none comes of it.
    std::string ConvertGIStoVDF(const std::string& source);
    std::uint64_t BuildGrpFromSource(const std::string& source, const std::string& package);

    enum class BuilderMode { Package, Drawing };
    /// Has the backdrop builder read a map document or workspace.
    void LaunchBackdropBuilder(const std::string& source, const std::string& target, BuilderMode mode);

    /// Has a page's images cut into tiles in a folder. @throws NotConverted
    void CarveImageTiles(const std::string& source, const std::string& folder, const std::string& fileList);

private:
    std::string ImportToDrawing(const std::string& source, const std::string& drawing);
    void BuildBackground(const std::string& source, const std::string& package, bool all);
    void ConvertMapSheet(const std::string& source, const std::string& package);
    void ConvertMapLayer(const std::string& source, const std::string& package, const std::string& fileList);
    bool FindCompanion(const std::string& source);

    config::Run& run_;
    const Conversions& conversions_;
    const SelectionSettings& choices_;
    std::unique_ptr<ui::FormView> view_;
};

/// One layer of a map sheet: its name, and the images that make it, joined by "*".
struct MapLayer {
    std::string name;
    std::string images;
};
/// What a layer specification means for the PNG files of a folder; layers without images are left out. An
/// empty specification means every image LG_*.PNG.
std::vector<MapLayer> MapLayersOf(std::string_view folder, std::string specification);

config::KeyList GoKeys();
config::KeyList MapSheetKeys();

}  // namespace vexlator::startup
