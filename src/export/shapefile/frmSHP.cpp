// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/shapefile/frmSHP.h"

#include "coords/DrawingProjection.h"
#include "coords/frmLatLng.h"
#include "export/LayerLoop.h"
#include "export/shapefile/ShapefileLayer.h"
#include "platform/OutputSet.h"
#include "util/Files.h"
#include "util/Paths.h"

#include <deque>
#include <memory>
#include <optional>
#include <string>

namespace vexlator::exporter {

namespace {

/// The text of the .PRJ files.
class Projections {
public:
    Projections(config::Run& run, const std::string& chosenFile) {
        std::optional<std::string> defined;
        if (chosenFile.empty()) defined = coords::DrawingProjection(run);
        drawing_ = defined ? *defined : ReadFile(run, chosenFile.empty() ? "ESRI.PRJ" : chosenFile);
        degrees_ = chosenFile.empty() ? coords::DegreesProjection() : drawing_;
        isUnknown_ = defined && defined->empty();
    }
    /// "" if no .PRJ is written.
    const std::string& TextFor(const ShapefileLayer& layer) {
        isMissed_ |= isUnknown_ && !layer.IsInDegrees();
        return layer.IsInDegrees() ? degrees_ : drawing_;
    }
    void Report(config::Run& run) const {
        if (isMissed_)
            run.Ui().Report(
                "no .PRJ: [GPS] TRANSFORMATION does not give the drawing's coordinate system; [SHPout] PRJ "
                "can name a file with it");
    }

private:
    /// The bytes of the projection file; none if there is no such file.
    static std::string ReadFile(const config::Run& run, const std::string& name) {
        std::string resources = util::JoinPath(run.Settings().ProgramFolder, "Resources");
        std::string path = util::JoinPath(resources, name);
        return util::FileSize(path) == 0 ? "" : std::string(platform::MappedFile(path).Text());
    }

    std::string drawing_, degrees_;
    bool isUnknown_ = false, isMissed_ = false;
};

}  // namespace

config::Outcome frmSHP::Start(std::string_view drawingPath, std::string_view targetPath) {
    BegunExport begun = BeginExport(run_, "frmSHP", drawingPath, targetPath);
    if (begun.IsStopped()) return begun.outcome;
    ShapefileSettings settings = ReadShapefileSettings(run_);
    Projections projections(run_, settings.projection);
    std::unique_ptr<coords::frmLatLng> converter;
    if (settings.latLng) converter = std::make_unique<coords::frmLatLng>(run_);

    platform::OutputSet files;
    std::vector<ExportLayer> layers = FindLayers(begun, LayerZero::Export);
    std::deque<ShapefileLayer> shapefiles;
    for (const ExportLayer& layer : layers)
        shapefiles.emplace_back(run_, settings, converter.get(), layer, targetPath, files);
    auto writeProjection = [&](std::size_t layer) {
        const std::string& text = projections.TextFor(shapefiles[layer]);
        if (!text.empty()) files.Add(util::JoinPath(targetPath, layers[layer].fileName + ".PRJ")).Write(text);
    };
    WriteLayers(
        run_, begun, layers, [&](std::size_t layer, const LayerPart& part) { shapefiles[layer].Write(part); },
        [&](std::size_t layer) {
            std::uint64_t records = shapefiles[layer].Finish();
            writeProjection(layer);
            return records;
        });
    projections.Report(run_);
    files.Commit();
    return begun.outcome;
}

}  // namespace vexlator::exporter
