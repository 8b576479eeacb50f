// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/shapefile/frmSHP.h"

#include "coords/frmLatLng.h"
#include "export/LayerLoop.h"
#include "export/shapefile/ShapefileLayer.h"
#include "platform/OutputSet.h"
#include "util/Files.h"
#include "util/Paths.h"

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
    OpenExport run(session_, "frmSHP", drawingPath, targetPath);
    if (run.IsStopped()) return run.outcome;
    ShapefileSettings settings = ReadSettings(session_);
    std::string projection = ReadProjection(session_, settings.projection);
    std::unique_ptr<coords::frmLatLng> converter;
    if (settings.latLng) converter = std::make_unique<coords::frmLatLng>(session_);

    platform::OutputSet files;
    run.outcome.layers =
        ForEachLayer(session_, run.drawing, *run.view, LayerZero::Export, [&](const ExportLayer& layer) {
            ShapefileLayer shapefile(session_, settings, converter.get(), layer, targetPath, files);
            run.outcome.features += shapefile.Write(*run.view);
            if (!projection.empty())
                files.Add(util::JoinPath(targetPath, layer.fileName + ".PRJ")).Write(projection);
            files.FinishSoFar();
        });
    files.Commit();
    return run.outcome;
}

}  // namespace vexlator::exporter
