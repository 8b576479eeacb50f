// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "BackgroundBuilder/Images.h"

#include "background/package/ImagePackageWriter.h"
#include "background/package/ImageTile.h"
#include "platform/AsciiCase.h"
#include "platform/Errors.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "raster/Gdal.h"
#include "raster/Picture.h"
#include "raster/Tiles.h"
#include "util/Counted.h"
#include "util/Paths.h"

#include <algorithm>
#include <optional>

namespace vexlator::backgroundbuilder {

namespace {

/// Pixels; map sheets are carved into tiles of this size too.
constexpr int tileSize = 400;

formats::WorldFile WorldOf(const std::string& source, const raster::Picture& picture) {
    if (std::optional<formats::WorldFile> world = raster::ReadWorldFileOf(source)) return *world;
    if (std::optional<formats::WorldFile> world = picture.Placement()) return *world;
    throw platform::ReadError(platform::NativePath(source), "", "no world file says where the image lies");
}

/// A JPEG file that is no larger than a tile becomes one as it is.
bool IsTile(const raster::Picture& picture, const platform::MappedFile& file) {
    return picture.IsPlainJpeg() && std::max(picture.Width(), picture.Height()) <= tileSize &&
           background::SizeOfJpeg(file.Bytes());
}

void AddImage(const std::string& source, const std::string& target, background::ImagePackageWriter& package) {
    if (platform::SameNoCase(util::ExtensionOf(source), "ECW") && !GDALGetDriverByName("ECW"))
        throw platform::ReadError(platform::NativePath(source), "",
                                  "GDAL on this system does not read ECW; save the image as JPEG or TIFF");
    raster::Picture picture({source});
    formats::WorldFile world = WorldOf(source, picture);
    platform::MappedFile file(source);
    if (IsTile(picture, file)) {
        picture.Prove();
        package.Tiles().Write(file.Bytes());
        return package.EndTile(world, picture.Width(), picture.Height());
    }
    GDALDatasetH flat = picture.Flat(util::ChangeExtension(target, "scratch"), false);
    raster::CarveTiles(flat, source, world, tileSize, [&](const raster::ImageTile& tile) {
        raster::WriteJpeg(tile.image, package.Tiles());
        package.EndTile(tile.world, GDALGetRasterXSize(tile.image), GDALGetRasterYSize(tile.image));
    });
}

}  // namespace

void BuildImages(config::Run& run, const Command& command) {
    raster::StartGdal();
    background::ImagePackageWriter package(command.target);
    std::vector<std::string> sources = SourcesOf(command);
    for (const std::string& source : sources) AddImage(source, command.target, package);
    package.Commit();
    run.Ui().Report(platform::NativePath(command.target) + ": " + util::Counted(sources.size(), "image"));
}

}  // namespace vexlator::backgroundbuilder
