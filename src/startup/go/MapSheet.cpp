// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/Mosaic.h"
#include "config/OutsideProgram.h"
#include "platform/AsciiCase.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "startup/go/SourceConversion.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::startup {

namespace {

struct MapSheetSettings {
    std::string layers;
};

using Keys = config::Keys<MapSheetSettings>;

constexpr config::KeyOf<MapSheetSettings> keys[] = {
    Keys::Text("GRP", "PDFlayers", &MapSheetSettings::layers,
               "layers of map sheets (PDF), separated by \\: NAME=PREFIX,PREFIX of the images that make it",
               "every image LG_*.PNG beside the sheet"),
};

std::vector<std::string> FilesLike(std::string_view folder, const std::string& pattern) {
    std::vector<std::string> files = platform::ListFiles(folder);
    std::erase_if(files, [&](const std::string& file) { return !util::MatchesPattern(file, pattern); });
    return files;
}

/// The layers of the images that lie beside a sheet.
std::string SpecificationOf(std::string_view folder) {
    std::string specification;
    std::size_t number = 0;
    for (const std::string& file : FilesLike(folder, "LG_*.PNG")) {
        if (number++ > 0) specification += '\\';
        std::string base = util::BaseNameOf(file);
        specification +=
            std::to_string(number) + "+" + std::string(util::GetField(1, base, "_")) + "=" + base + ",GB";
    }
    return specification;
}

/// The images of a section's prefixes, joined by "*". A prefix that no file begins with, or several, has
/// none.
std::string ImagesOf(std::string_view folder, std::string_view prefixes) {
    std::string images;
    for (std::size_t i = 0; i <= util::CountOf(prefixes, ","); ++i) {
        std::vector<std::string> files =
            FilesLike(folder, std::string(util::GetCommaField(i, prefixes)) + "*.PNG");
        if (files.size() == 1) images.append(images.empty() ? "" : "*").append(files[0]);
    }
    return images;
}

/// Where the tiles of a layer lie until they are a package.
struct TileFolder {
    explicit TileFolder(std::string folder) : path(std::move(folder)) {
        platform::RequireFolder(path);
        util::DeleteFiles(util::JoinPath(path, "*"));
    }
    ~TileFolder() {
        util::DeleteFiles(util::JoinPath(path, "*"));
        platform::RemoveEmptyFolder(path);
    }
    TileFolder(const TileFolder&) = delete;
    TileFolder& operator=(const TileFolder&) = delete;
    std::string path;
};

}  // namespace

std::vector<MapLayer> MapLayersOf(std::string_view folder, std::string specification) {
    if (specification.empty()) specification = SpecificationOf(folder);
    std::vector<MapLayer> layers;
    for (std::size_t i = 0; i <= util::CountOf(specification, "\\"); ++i) {
        std::string_view section = util::GetField(i, specification, "\\");
        std::size_t mark = section.find('=');
        if (mark == std::string_view::npos) continue;
        std::string images = ImagesOf(folder, section.substr(mark + 1));
        if (!images.empty()) layers.push_back({util::SafeFileName(section.substr(0, mark)), images});
    }
    return layers;
}

/// Whether the file that places a map sheet is there.
bool SourceConversion::FindCompanion(const std::string& source) {
    if (platform::FileExists(util::ChangeExtension(source, "XML"))) return true;
    std::string folder = util::FolderOf(source);
    std::vector<std::string> files = FilesLike(folder, "*.XML");
    if (files.size() != 1) return false;
    run_.Ui().ShowMessage("Assuming XML:" + platform::NativePath(util::JoinPath(folder, files[0])));
    return true;
}

void SourceConversion::ConvertMapSheet(const std::string& source, const std::string& package) {
    if (!FindCompanion(source)) throw NotConverted("No Corresponding XML");
    std::string folder = util::FolderOf(source);
    std::string specification = config::ReadKeys<MapSheetSettings>(run_.Installation(), keys).layers;
    std::vector<MapLayer> layers = MapLayersOf(folder, specification);
    if (layers.empty())
        throw NotConverted("no image beside " + platform::NativePath(source) + " makes a layer" +
                           (specification.empty() ? "" : " of [GRP] PDFlayers"));
    if (layers.size() == 1) return ConvertMapLayer(source, package, layers[0].images);
    std::string target = util::FolderOf(package);
    for (const MapLayer& layer : layers) {
        std::string name = background::ShortPackageName(layer.name);
        ConvertMapLayer(source, util::JoinPath(util::JoinPath(target, name), name + ".GRP"), layer.images);
    }
    background::BuildMosaicIndex(package, false, run_.Ui());
}

void SourceConversion::ConvertMapLayer(const std::string& source, const std::string& package,
                                       const std::string& fileList) {
    TileFolder tiles(util::JoinPath(run_.Settings().TempDirectory,
                                    util::BaseNameOf(source) + "_" + util::BaseNameOf(package) + "_files"));
    CarveImageTiles(source, tiles.path, fileList);
    std::vector<std::string> files = FilesLike(tiles.path, "*.JPG");
    if (files.empty()) throw NotConverted("no tiles came of " + platform::NativePath(source));
    BuildBackground(util::JoinPath(tiles.path, files[0]), package, true);
}

void SourceConversion::CarveImageTiles(const std::string& source, const std::string& folder,
                                       const std::string& fileList) {
    constexpr double mostSeconds = 30;
    std::string program = config::FindSuiteProgram(run_, "PDF\\MakeWorldFile.exe");
    if (program.empty()) throw NotConverted("MakeWorldFile.exe Not Found");
    std::string log = util::JoinPath(folder, "Log.txt");
    platform::RemoveFile(log);
    config::OutsideProgram cutter(run_, program,
                                  "source \"" + platform::NativePath(source) + "\" target \"" +
                                      platform::NativePath(folder + "\\") + "\" FileList \"" + fileList +
                                      "\" CARVE 400");
    bool isDone = cutter.WaitFor([&log] { return platform::FileExists(log); },
                                 [this] { view_->Progress(0, 0); }, mostSeconds);
    if (!isDone) {
        run_.Ui().Report(cutter.Problem());
        throw NotConverted("Failed Image Manipulation!");
    }
    std::string result = util::ReadFirstLine(log);
    if (result != "OK")
        throw NotConverted("no tiles were cut of " + platform::NativePath(source) +
                           (result.empty() ? "" : ": " + result));
}

config::KeyList MapSheetKeys() {
    return config::ListOf<MapSheetSettings>(keys);
}

}  // namespace vexlator::startup
