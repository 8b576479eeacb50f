// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/shapefile/frmSHP.h"

#include "coords/frmLatLng.h"
#include "export/LayerLoop.h"
#include "export/shapefile/ShapefileLayer.h"
#include "platform/OutputSet.h"
#include "util/Files.h"
#include "util/Paths.h"

#include <deque>
#include <memory>

namespace vexlator::exporter {

namespace {

using Keys = config::Keys<ShapefileSettings>;

constexpr config::KeyOf<ShapefileSettings> keys[] = {
    Keys::Flag("SHPout", "LL", &ShapefileSettings::latLng, "shapefile exports in latitude/longitude"),
    Keys::Text("SHPout", "PRJ", &ShapefileSettings::projection, "projection file in the folder Resources",
               "ESRI.PRJ; with LL, WGS 84, which needs no file"),
};

ShapefileSettings ReadSettings(const config::Run& run) {
    auto settings = config::ReadKeys<ShapefileSettings>(run.Installation(), keys);
    settings.suppressNA = run.ReadIniFlag("CSV", "SuppressNA");
    return settings;
}

/// WGS 84 (EPSG:4326) in the names of ESRI's well-known text: what conversions to degrees result in.
constexpr std::string_view worldGeodeticSystem =
    R"wkt(GEOGCS["GCS_WGS_1984",DATUM["D_WGS_1984",SPHEROID["WGS_1984",6378137.0,298.257223563]],)wkt"
    R"wkt(PRIMEM["Greenwich",0.0],UNIT["Degree",0.0174532925199433]])wkt";

/// The bytes of the projection file; none when there is no such file.
std::string ReadProjection(const config::Run& run, const std::string& name) {
    std::string path = util::JoinPath(util::JoinPath(run.Settings().ProgramFolder, "Resources"), name);
    if (util::FileSize(path) == 0) return "";
    return std::string(platform::MappedFile(path).Text());
}

}  // namespace

config::Outcome frmSHP::Start(std::string_view drawingPath, std::string_view targetPath) {
    BegunExport begun = BeginExport(run_, "frmSHP", drawingPath, targetPath);
    if (begun.IsStopped()) return begun.outcome;
    ShapefileSettings settings = ReadSettings(run_);
    bool isChosen = !settings.projection.empty();
    std::string projection = ReadProjection(run_, isChosen ? settings.projection : "ESRI.PRJ");
    std::unique_ptr<coords::frmLatLng> converter;
    if (settings.latLng) converter = std::make_unique<coords::frmLatLng>(run_);

    platform::OutputSet files;
    std::vector<ExportLayer> layers = FindLayers(begun, LayerZero::Export);
    std::deque<ShapefileLayer> shapefiles;
    for (const ExportLayer& layer : layers)
        shapefiles.emplace_back(run_, settings, converter.get(), layer, targetPath, files);
    auto writeProjection = [&](std::size_t layer) {
        bool degrees = !isChosen && shapefiles[layer].IsInDegrees();
        std::string_view text = degrees ? worldGeodeticSystem : projection;
        if (!text.empty()) files.Add(util::JoinPath(targetPath, layers[layer].fileName + ".PRJ")).Write(text);
    };
    WriteLayers(
        run_, begun, layers, [&](std::size_t layer, const LayerPart& part) { shapefiles[layer].Write(part); },
        [&](std::size_t layer) {
            std::uint64_t records = shapefiles[layer].Finish();
            writeProjection(layer);
            return records;
        });
    files.Commit();
    return begun.outcome;
}

config::KeyList ShapefileKeys() {
    return config::ListOf<ShapefileSettings>(keys);
}

}  // namespace vexlator::exporter
