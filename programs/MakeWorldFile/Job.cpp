// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "MakeWorldFile/Job.h"

#include "MakeWorldFile/NorthUp.h"
#include "formats/worldfile/WorldFile.h"
#include "georef/PointEntries.h"
#include "platform/OutputSet.h"
#include "platform/Paths.h"
#include "raster/Picture.h"
#include "raster/Tiles.h"
#include "util/Numbers.h"
#include "util/Paths.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <vector>

namespace vexlator::makeworldfile {

namespace {

using raster::Picture;

constexpr const char* lineEnd = "\r\n";

/// The position of the image, and whether to rotate it.
struct Placement {
    std::optional<georef::Fit> fit;  ///< from control points
    formats::WorldFile world;        ///< without them
    bool turns = false;
    std::string said;
};

std::string Counted(double value, int decimals, const char* unit) {
    return util::FormatFixed(value, decimals) + " " + unit;
}

std::string Residuals(const georef::Fit& fit) {
    auto both = [](double pixels, double metres) {
        return Counted(pixels, 2, "pixels, ") + Counted(metres, 3, "on the ground");
    };
    georef::MeanError mean = fit.Error();
    std::string text = "mean error: " + both(mean.pixels, mean.metres) + lineEnd;
    for (const georef::Residual& residual : fit.Residuals())
        text += "point " + std::to_string(residual.number) + ": " + both(residual.pixels, residual.metres) +
                lineEnd;
    return text;
}

/// Of the source, else of the first layer.
formats::WorldFile WorldOf(const Command& command, const std::vector<std::string>& files,
                           const Picture& picture) {
    for (const std::string& image : {command.source, files.front()})
        if (std::optional<formats::WorldFile> world = raster::ReadWorldFileOf(image)) return *world;
    if (std::optional<formats::WorldFile> world = picture.Placement()) return *world;
    throw std::runtime_error(platform::NativePath(command.source) +
                             ": neither control points nor a world file give the position of the image");
}

Placement FitOf(const georef::GeorefFile& file, const Picture& picture) {
    Placement placement;
    placement.fit.emplace(georef::PointsForFit(file.points), file.order);
    placement.turns = file.rotate;
    const georef::Fit& fit = *placement.fit;
    bool bends = fit.Kind() == georef::FitKind::SecondOrder;
    if (bends && !file.rotate)
        throw std::runtime_error(
            "a fit of second order bends the image, which a world file cannot express; rotate the image, or "
            "use a fit of first order");
    placement.world = fit.TermsAt({0, 0});
    placement.said = fit.Description().English() + lineEnd + Residuals(fit);
    if (fit.IsMirrored())
        placement.said +=
            std::string("the image is mirrored: are two points, or x and y, exchanged?") + lineEnd;
    bool isOtherSize = file.width > 0 && (file.width != picture.Width() || file.height != picture.Height());
    if (isOtherSize)
        placement.said += "the points were taken on an image of " + std::to_string(file.width) + " x " +
                          std::to_string(file.height) + " pixels" + lineEnd;
    return placement;
}

Placement PlacementOf(const Command& command, const std::vector<std::string>& files, const Picture& picture) {
    georef::GeorefFile file;
    if (!command.georefFile.empty()) {
        if (!platform::FileExists(command.georefFile))
            throw platform::ReadError(platform::NativePath(command.georefFile), "", "no such file");
        file = georef::ReadGeorefFile(command.georefFile);
    }
    bool mayUseWorldFile = command.tileSize > 0 && georef::CountComplete(file.points) == 0;
    try {
        if (!mayUseWorldFile) return FitOf(file, picture);
    } catch (const georef::FitError& error) {
        throw platform::ReadError(platform::NativePath(command.georefFile), "", error.what());
    }
    Placement placement;
    placement.world = WorldOf(command, files, picture);
    return placement;
}

/// Names in the list are files beside the source.
std::vector<std::string> FilesOf(const Command& command) {
    if (command.layers.empty()) return {command.source};
    std::vector<std::string> files;
    for (const std::string& name : command.layers) {
        bool isPath = name.find_first_of("/\\") != std::string::npos;
        std::string folder = util::FolderOf(command.source);
        files.push_back(isPath || folder.empty() ? name : util::JoinPath(folder, name));
    }
    return files;
}

std::string Size(int width, int height) {
    return std::to_string(width) + " x " + std::to_string(height) + " pixels";
}

/// The image to write.
struct Result {
    GDALDatasetH image = nullptr;
    formats::WorldFile world;
    std::optional<raster::ScratchImage> turned;
};

/// Before the image is turned, which can take minutes.
void RequireJpegSize(int width, int height) {
    constexpr int longestSide = 65'500;
    if (std::max(width, height) > longestSide)
        throw std::runtime_error(Size(width, height) +
                                 " are more than a JPEG can have; cut the image into tiles");
}

Result ResultOf(const Command& command, const Placement& placement, Picture& picture) {
    std::string scratch = util::JoinPath(command.target, "scratch.tif");
    NorthUpFrame frame{picture.Width(), picture.Height(), placement.world};
    if (placement.turns) frame = FrameNorthUp(*placement.fit, picture.Width(), picture.Height());
    if (command.tileSize == 0) RequireJpegSize(frame.width, frame.height);
    Result result{picture.Flat(scratch, placement.turns), frame.world, std::nullopt};
    if (!placement.turns) return result;
    result.turned.emplace(TurnNorthUp(result.image, *placement.fit, frame, scratch));
    result.image = result.turned->Handle();
    return result;
}

void WriteWhole(const Result& result, const Picture& picture, const std::string& source,
                const std::string& path, platform::OutputSet& outputs) {
    platform::OutputFile& output = outputs.Add(path);
    if (!result.turned && picture.IsPlainJpeg()) {
        picture.Prove();
        output.Write(platform::MappedFile(source).Bytes());
    } else {
        try {
            raster::WriteJpeg(result.image, output);
        } catch (const platform::ReadError& error) {
            throw error.InFile(platform::NativePath(source));
        }
    }
    outputs.Add(formats::WorldFilePath(path)).Write(formats::WorldFileText(result.world));
}

/// FOLDER\NAME_RRR_CCC.jpg, row and column from 1 at the top left, so that the order of names is that of rows
/// and columns, each with its world file.
raster::TileCount WriteTiles(const Result& result, const Command& command, platform::OutputSet& outputs) {
    std::string name = util::JoinPath(command.target, util::SafeFileName(util::BaseNameOf(command.source)));
    raster::TileCount count = raster::CountTiles(result.image, command.tileSize);
    int digits =
        std::max<int>(3, static_cast<int>(std::to_string(std::max(count.rows, count.columns)).size()));
    auto write = [&](const raster::ImageTile& tile) {
        std::string path = name + "_" + util::ZeroPadded(tile.row + 1, digits) + "_" +
                           util::ZeroPadded(tile.column + 1, digits);
        raster::WriteJpeg(tile.image, outputs.Add(path + ".jpg"));
        outputs.Add(path + ".jgw").Write(formats::WorldFileText(tile.world));
    };
    raster::CarveTiles(result.image, command.source, result.world, command.tileSize, write);
    return count;
}

std::string WriteOutputs(const Result& result, const Picture& picture, const Command& command) {
    platform::OutputSet outputs;
    std::string said;
    if (command.tileSize > 0) {
        raster::TileCount tiles = WriteTiles(result, command, outputs);
        said = std::to_string(tiles.rows) + " rows of " + std::to_string(tiles.columns) + " tiles";
    } else {
        std::string path = util::JoinPath(command.target, "bkg.jpg");
        WriteWhole(result, picture, command.source, path, outputs);
        said = "bkg.jpg";
    }
    outputs.Finish();
    outputs.Commit();
    return said + ", " + Size(GDALGetRasterXSize(result.image), GDALGetRasterYSize(result.image)) + lineEnd;
}

}  // namespace

std::string RunJob(const Command& command) {
    std::vector<std::string> files = FilesOf(command);
    Picture picture(files);
    Placement placement = PlacementOf(command, files, picture);
    Result result = ResultOf(command, placement, picture);
    return placement.said + WriteOutputs(result, picture, command);
}

}  // namespace vexlator::makeworldfile
