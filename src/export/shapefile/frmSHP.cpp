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

ShapefileSettings ReadSettings(const config::Session& session) {
    ShapefileSettings settings;
    settings.suppressNA = session.ReadIniFlag("CSV", "SuppressNA");
    settings.latLng = session.ReadIniFlag("SHPout", "LL");
    std::string projection = session.ReadIni("SHPout", "PRJ");
    if (!projection.empty()) settings.projection = projection;
    return settings;
}

/// The bytes of the projection file; none when there is no such file.
std::string ReadProjection(const config::Session& session, const std::string& name) {
    std::string path = util::JoinPath(util::JoinPath(session.Settings().ProgramFolder, "Resources"), name);
    if (util::FileSize(path) == 0) return "";
    return std::string(platform::MappedFile(path).Text());
}

}  // namespace

config::Outcome frmSHP::Start(std::string_view drawingPath, std::string_view targetPath) {
    BegunExport run = BeginExport(session_, "frmSHP", drawingPath, targetPath);
    if (run.IsStopped()) return run.outcome;
    ShapefileSettings settings = ReadSettings(session_);
    std::string projection = ReadProjection(session_, settings.projection);
    std::unique_ptr<coords::frmLatLng> converter;
    if (settings.latLng) converter = std::make_unique<coords::frmLatLng>(session_);

    platform::OutputSet files;
    std::vector<ExportLayer> layers = FindLayers(run, LayerZero::Export);
    std::deque<ShapefileLayer> shapefiles;
    for (const ExportLayer& layer : layers) {
        shapefiles.emplace_back(session_, settings, converter.get(), layer, targetPath, files);
        if (!projection.empty())
            files.Add(util::JoinPath(targetPath, layer.fileName + ".PRJ")).Write(projection);
    }
    WriteLayers(
        session_, run, layers,
        [&](std::size_t layer, const LayerPart& part) { shapefiles[layer].Write(part); },
        [&](std::size_t layer) { return shapefiles[layer].Finish(); });
    files.Commit();
    return run.outcome;
}

}  // namespace vexlator::exporter
